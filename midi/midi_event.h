// One event of a Standard MIDI Files 1.0 track, as `MidiFile::getNextEvent` delivers it, and the
// questions asked of it. A plain record: whoever holds it owns `data`, and frees and clears it with
// `clearEvent` before each read. Nothing here fails: a byte that a complete payload lacks is 0.
#pragma once

#include <cstdint>

namespace tavrel {

constexpr std::uint32_t kMetaStatus = 0xFF;
constexpr std::uint32_t kEndOfTrack = 0x2F;  ///< meta type
constexpr std::uint32_t kTempo = 0x51;       ///< meta type

struct MidiEvent {
  std::uint32_t deltaTime = 0;     ///< ticks since the previous event
  std::uint32_t absoluteTime = 0;  ///< ticks since the last rewind, `deltaTime` included
  std::uint32_t metaType = 0;      ///< type of a meta event, 255 for every channel message
  std::uint32_t status = 0;        ///< from the file, or from the running status
  std::uint8_t statusHigh = 0;     ///< bits 4 to 7 of `status`
  std::uint8_t statusLow = 0;      ///< bits 0 to 3 of `status`
  std::uint8_t channel = 0;        ///< 1 to 16 for a channel message, else 0
  std::uint32_t dataLength = 0;    ///< bytes in `data`
  std::uint8_t* data = nullptr;    ///< the payload; owned by the holder, freed with delete[]
  std::uint32_t sequence = 0;      ///< number since the last rewind; the first event has 1
};

/// Frees the payload and clears the record for the next read.
inline void clearEvent(MidiEvent& ev) {
  delete[] ev.data;
  ev = MidiEvent{};
}

/// A record that frees its payload when it goes out of scope.
class HeldEvent : public MidiEvent {
 public:
  HeldEvent() = default;
  ~HeldEvent() { delete[] data; }
  HeldEvent(const HeldEvent&) = delete;
  HeldEvent& operator=(const HeldEvent&) = delete;
  HeldEvent(HeldEvent&&) = delete;
  HeldEvent& operator=(HeldEvent&&) = delete;
};

/// A cleared record that the caller gives back to `deleteEvent`. Null when memory is short.
MidiEvent* newEvent();

/// Frees the record and its payload. Null is ignored.
void deleteEvent(MidiEvent* ev);

/// The payload byte at `index`, or 0 if the payload is shorter.
inline std::uint8_t payloadByte(const MidiEvent& ev, std::uint32_t index) {
  return ev.data != nullptr && index < ev.dataLength ? ev.data[index] : std::uint8_t{0};
}

/// Is there a first payload byte, and is it `value`?
bool hasFirstByte(const MidiEvent& ev, std::uint8_t value);

/// Microseconds per quarter note: the first three payload bytes, the first one the highest.
std::uint32_t tempoOf(const MidiEvent& ev);

/// With `status` 255: is this a meta event of type `type`?
inline bool matchesMeta(const MidiEvent& ev, std::uint32_t status, std::uint32_t type) {
  return ev.status == status && ev.metaType == type;
}

bool hasStatus(const MidiEvent& ev, std::uint32_t status);
/// A note on with a velocity of 0 is a note off.
bool isNoteOn(const MidiEvent& ev);
bool isNoteOff(const MidiEvent& ev);
/// Is this a note on of note `number`, whatever its velocity?
bool isNoteNumber(const MidiEvent& ev, std::uint8_t number);
bool isPolyPressure(const MidiEvent& ev);
bool isController(const MidiEvent& ev);
bool isControllerNumber(const MidiEvent& ev, std::uint8_t number);
bool isProgramChange(const MidiEvent& ev);
bool isProgramNumber(const MidiEvent& ev, std::uint8_t number);
bool isChannelPressure(const MidiEvent& ev);
bool isPitchWheel(const MidiEvent& ev);
bool isSysEx(const MidiEvent& ev);
bool isMeta(const MidiEvent& ev);
bool isMetaType(const MidiEvent& ev, std::uint32_t type);

/// The name of the controller whose number is the first payload byte.
const char* controllerName(const MidiEvent& ev);

// These write the payload to standard output in a reader's form, without a line feed.
/// Every byte as it stands, zeros included.
void printText(const MidiEvent& ev);
void printHex(const MidiEvent& ev);
void printTimeSignature(const MidiEvent& ev);
void printSmpteOffset(const MidiEvent& ev);
/// Prints nothing for a tempo of less than a millisecond per quarter note.
void printBpm(const MidiEvent& ev);
void printKeySignature(const MidiEvent& ev);

}  // namespace tavrel
