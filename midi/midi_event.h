// Record of one event of a Standard MIDI Files 1.0 track, as `MidiFile::getNextEvent` fills it, and
// its predicates. The holder of a record owns `data` and calls `clearEvent` before each read.
// Only `newEvent` can fail. Payload bytes that are missing count as 0, but no predicate finds a
// number in them.
#pragma once

#include <cstdint>

namespace tavrel {

constexpr std::uint32_t kMetaStatus = 0xFF;
constexpr std::uint32_t kMetaEndOfTrack = 0x2F;
constexpr std::uint32_t kMetaTempo = 0x51;

struct MidiEvent {
  std::uint32_t deltaTime = 0;     ///< ticks since the previous event
  std::uint32_t absoluteTime = 0;  ///< ticks since the last rewind, `deltaTime` included
  std::uint32_t metaType = 0;      ///< type of a meta event, 255 for a channel message, else 0
  std::uint32_t status = 0;        ///< from the file, or the running status
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

/// Record that frees its payload on destruction.
class HeldEvent : public MidiEvent {
 public:
  HeldEvent() = default;
  ~HeldEvent() { delete[] data; }
  HeldEvent(const HeldEvent&) = delete;
  HeldEvent& operator=(const HeldEvent&) = delete;
  HeldEvent(HeldEvent&&) = delete;
  HeldEvent& operator=(HeldEvent&&) = delete;
};

/// Returns the payload byte at `index`, or 0 if the payload is shorter.
inline std::uint8_t payloadByte(const MidiEvent& ev, std::uint32_t index) {
  return ev.data != nullptr && index < ev.dataLength ? ev.data[index] : std::uint8_t{0};
}

/// Returns the first three payload bytes as a big-endian number: the microseconds per quarter note
/// of a tempo event.
std::uint32_t tempoOf(const MidiEvent& ev);

/// Returns true for an event with that status and meta type. A meta event has status 255.
inline bool matchesMeta(const MidiEvent& ev, std::uint32_t status, std::uint32_t type) {
  return ev.status == status && ev.metaType == type;
}

inline bool isMetaType(const MidiEvent& ev, std::uint32_t type) {
  return matchesMeta(ev, kMetaStatus, type);
}

// Not used by the tool; for programs that list or search sequences, such as tavkit.

/// Allocates a cleared record, which the caller frees with `deleteEvent`. Returns null if memory
/// runs out.
MidiEvent* newEvent();

/// Frees the record and its payload. Ignores null.
void deleteEvent(MidiEvent* ev);

/// Returns false for an empty payload.
bool hasFirstByte(const MidiEvent& ev, std::uint8_t value);

bool hasStatus(const MidiEvent& ev, std::uint32_t status);
/// Returns false for a note-on with velocity 0, which is a note-off.
bool isNoteOn(const MidiEvent& ev);
bool isNoteOff(const MidiEvent& ev);
/// Returns true for a note-on of note `number`, with velocity 0 too.
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

/// Returns the name of the controller whose number is the first payload byte.
const char* controllerName(const MidiEvent& ev);

// Print the payload in one form on standard output, without a line feed (payload_text.cpp).

/// Prints all bytes unchanged, zeros included.
void printText(const MidiEvent& ev);
void printHex(const MidiEvent& ev);
void printTimeSignature(const MidiEvent& ev);
void printSmpteOffset(const MidiEvent& ev);
/// Prints nothing for a tempo of less than a millisecond per quarter note.
void printBpm(const MidiEvent& ev);
void printKeySignature(const MidiEvent& ev);

}  // namespace tavrel
