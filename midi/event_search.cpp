#include <array>
#include <memory>

#include "foundation/console.h"
#include "midi/midi_file.h"

namespace tavrel {

namespace {

/// The kinds of event that `channelHasEvents` looks for, in the order of its searches.
struct ChannelKind {
  std::uint32_t firstStatus;  // on channel 0
  std::uint8_t bit;           // in its mask
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

/// The notes that sound at the moment. Notes of one number on one channel are all alike, so that
/// counting them stands for a list of their note-ons, and takes the same time for each event.
class SoundingNotes {
 public:
  void add(const MidiEvent& noteOn) {
    ++count(noteOn);
    ++total_;
  }

  /// False if no such note sounds.
  bool remove(const MidiEvent& noteOff) {
    if (count(noteOff) == 0) {
      return false;
    }
    --count(noteOff);
    --total_;
    return true;
  }

  /// How many sound, in the 16 bits in which voices are counted.
  [[nodiscard]] std::int16_t size() const { return static_cast<std::int16_t>(total_); }

 private:
  std::uint32_t& count(const MidiEvent& note) {
    return counts_[note.statusLow][payloadByte(note, 0)];
  }

  std::array<std::array<std::uint32_t, 256>, 16> counts_{};
  std::uint32_t total_ = 0;
};

bool readerFailed() {
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
      return readerFailed();
    }
    if (hasStatus(ev, status)) {
      return true;
    }
    if (isMetaType(ev, kEndOfTrack)) {
      return false;
    }
  }
}

bool MidiFile::findEvent(MidiEvent& ev, std::uint32_t status, std::uint8_t firstByte,
                         bool fromCursor) {
  bool found = findEvent(ev, status, fromCursor);
  while (found && !hasFirstByte(ev, firstByte)) {
    found = !isMetaType(ev, kEndOfTrack) && findEvent(ev, status, true);
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
  SoundingNotes active;
  std::int16_t peak = 0;
  HeldEvent ev;
  for (;;) {
    clearEvent(ev);
    if (!getNextEvent(ev)) {
      return readerFailed();
    }
    if (isNoteOn(ev)) {
      active.add(ev);
      if (active.size() > peak) {
        peak = active.size();
        printLine(stdout, "Poly update: ", std::int32_t{peak});
      }
    } else if (isNoteOff(ev)) {
      if (active.remove(ev)) {
        printLine(stdout, "Voice Channel Freed");
      }
    } else if (isMetaType(ev, kEndOfTrack)) {
      out = static_cast<std::uint16_t>(peak);
      return true;
    }
  }
}

}  // namespace tavrel
