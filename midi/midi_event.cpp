#include "midi/midi_event.h"

#include <array>
#include <new>

#include "foundation/byte_order.h"

namespace tavrel {

namespace {

constexpr std::uint32_t kNoteOff = 0x80;
constexpr std::uint32_t kNoteOn = 0x90;
constexpr std::uint32_t kPolyPressure = 0xA0;
constexpr std::uint32_t kController = 0xB0;
constexpr std::uint32_t kProgramChange = 0xC0;
constexpr std::uint32_t kChannelPressure = 0xD0;
constexpr std::uint32_t kPitchWheel = 0xE0;
constexpr std::uint32_t kSysEx = 0xF0;

/// Returns true for the channel message whose status on channel 0 is `firstStatus`.
bool isMessage(const MidiEvent& ev, std::uint32_t firstStatus) {
  return (ev.status & ~0xFU) == firstStatus;
}

bool hasVelocity(const MidiEvent& ev) { return payloadByte(ev, 1) != 0; }

}  // namespace

std::uint32_t tempoOf(const MidiEvent& ev) {
  const std::array<std::uint8_t, 3> bytes{payloadByte(ev, 0), payloadByte(ev, 1),
                                          payloadByte(ev, 2)};
  return loadBig24(bytes.data());
}

MidiEvent* newEvent() { return new (std::nothrow) MidiEvent{}; }

void deleteEvent(MidiEvent* ev) {
  if (ev != nullptr) {
    delete[] ev->data;
    delete ev;
  }
}

bool hasFirstByte(const MidiEvent& ev, std::uint8_t value) {
  return ev.data != nullptr && ev.dataLength > 0 && ev.data[0] == value;
}

bool hasStatus(const MidiEvent& ev, std::uint32_t status) { return ev.status == status; }

bool isNoteOn(const MidiEvent& ev) { return isMessage(ev, kNoteOn) && hasVelocity(ev); }

bool isNoteOff(const MidiEvent& ev) {
  return isMessage(ev, kNoteOff) || (isMessage(ev, kNoteOn) && !hasVelocity(ev));
}

bool isNoteNumber(const MidiEvent& ev, std::uint8_t number) {
  return isMessage(ev, kNoteOn) && hasFirstByte(ev, number);
}

bool isPolyPressure(const MidiEvent& ev) { return isMessage(ev, kPolyPressure); }

bool isController(const MidiEvent& ev) { return isMessage(ev, kController); }

bool isControllerNumber(const MidiEvent& ev, std::uint8_t number) {
  return isController(ev) && hasFirstByte(ev, number);
}

bool isProgramChange(const MidiEvent& ev) { return isMessage(ev, kProgramChange); }

bool isProgramNumber(const MidiEvent& ev, std::uint8_t number) {
  return isProgramChange(ev) && hasFirstByte(ev, number);
}

bool isChannelPressure(const MidiEvent& ev) { return isMessage(ev, kChannelPressure); }

bool isPitchWheel(const MidiEvent& ev) { return isMessage(ev, kPitchWheel); }

bool isSysEx(const MidiEvent& ev) { return hasStatus(ev, kSysEx); }

bool isMeta(const MidiEvent& ev) { return hasStatus(ev, kMetaStatus); }

}  // namespace tavrel
