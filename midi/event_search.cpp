#include <array>
#include <memory>

#include "foundation/console.h"
#include "midi/midi_file.h"
#include "midi/sounding_notes.h"

namespace tavrel {

namespace {

/// One kind of event that `channelHasEvents` searches for.
struct ChannelKind {
  std::uint32_t firstStatus;  // on channel 0
  std::uint8_t bit;           // in the mask of kinds
};

constexpr std::array<ChannelKind, 7> kChannelKinds{{
    {0x90, 0x01},
    {0x80, 0x02},
    {0xA0, 0x04},
    {0xB0, 0x08},
    {0xC0, 0x10},
    {0xD0, 0x20},
    {0xE0, 0x40},
}};

bool failRead() {
  printLine(stderr, "getNextEvent()==FAIL in findEvent()");
  return false;
}

}  // namespace

bool MidiFile::findEvent(MidiEvent& ev, std::uint32_t status, bool fromCursor) {
  if (!fromCursor) {
    rewind();
  }
  for (;;) {
    clearEvent(ev);
    if (!getNextEvent(ev)) {
      return failRead();
    }
    if (hasStatus(ev, status)) {
      return true;
    }
    if (isMetaType(ev, kMetaEndOfTrack)) {
      return false;
    }
  }
}

bool MidiFile::findEvent(MidiEvent& ev, std::uint32_t status, std::uint8_t firstByte,
                         bool fromCursor) {
  bool found = findEvent(ev, status, fromCursor);
  while (found && !hasFirstByte(ev, firstByte)) {
    found = !isMetaType(ev, kMetaEndOfTrack) && findEvent(ev, status, true);
  }
  return found;
}

bool MidiFile::findEvent(MidiEvent& ev, std::uint32_t status) {
  return findEvent(ev, status, false);
}

bool MidiFile::channelHasEvents(std::int16_t channel, std::uint8_t kinds) {
  const std::unique_ptr<MidiEvent, decltype(&deleteEvent)> ev(newEvent(), &deleteEvent);
  if (!ev) {
    return false;
  }
  for (const ChannelKind& kind : kChannelKinds) {
    const std::uint32_t status = kind.firstStatus + static_cast<std::uint32_t>(channel);
    if (findEvent(*ev, status) && (kinds & kind.bit) != 0) {
      return true;
    }
  }
  return false;
}

bool MidiFile::countPolyphony(std::uint16_t& out) {
  SoundingNotes notes;
  std::int16_t peak = 0;
  HeldEvent ev;
  for (;;) {
    clearEvent(ev);
    if (!getNextEvent(ev)) {
      return failRead();
    }
    if (isNoteOn(ev)) {
      notes.start(ev);
      const auto voices = static_cast<std::int16_t>(notes.total());
      if (voices > peak) {
        peak = voices;
        printLine(stdout, "Poly update: ", std::int32_t{peak});
      }
    } else if (isNoteOff(ev)) {
      if (notes.stop(ev)) {
        printLine(stdout, "Voice Channel Freed");
      }
    } else if (isMetaType(ev, kMetaEndOfTrack)) {
      out = static_cast<std::uint16_t>(peak);
      return true;
    }
  }
}

}  // namespace tavrel
