// Reads the events of a track. Their layout in Standard MIDI Files 1.0:
//
//   content                    width
//   delta time in ticks        variable-length quantity
//   status                     1; may be left out if it equals the one before
//   channel message            2 data bytes; 1 for program change and channel pressure
//   meta event (0xFF)          1 for the type, a variable-length quantity, that many bytes
//   system event (0xF0-0xFE)   a variable-length quantity, that many bytes
//
// A variable-length quantity holds 7 bits per byte, highest first. All its bytes but the last have
// their top bit set.
#include <algorithm>

#include "foundation/bit_utilities.h"
#include "midi/midi_file.h"

namespace tavrel {

namespace {

constexpr std::uint8_t kTopBit = 0x80;
constexpr std::uint8_t kNoMetaType = 0xFF;

void setLowByte(std::uint32_t& word, std::uint8_t byte) { word = (word & ~0xFFU) | byte; }

}  // namespace

void MidiFile::rewind() {
  accumulatedTime = 0;
  eventCount = 0;
  // The offset may be that of an earlier, longer image.
  cursor = image.get() + std::min(trackDataOffset, imageSize);
}

bool MidiFile::readVarLen(std::uint32_t& out) {
  std::uint32_t value = 0;
  std::uint8_t byte = 0;
  do {
    if (!readByte(byte)) {
      return false;
    }
    value = value << 7U | (byte & ~kTopBit & 0xFFU);
  } while ((byte & kTopBit) != 0);
  out = value;
  return true;
}

bool MidiFile::readBytes(std::uint8_t* dest, std::uint32_t count) {
  const auto left = static_cast<std::uint32_t>(imageEnd - cursor);
  const std::uint32_t taken = std::min(count, left);
  std::copy_n(cursor, taken, dest);
  cursor += taken;
  bytesRead += taken;
  if (taken < count) {
    atEnd = 1;
    return false;
  }
  return true;
}

bool MidiFile::getNextEvent(MidiEvent& ev) {
  if (!readVarLen(ev.deltaTime)) {
    return false;
  }
  accumulatedTime += ev.deltaTime;
  ev.absoluteTime = accumulatedTime;
  ++eventCount;
  ev.sequence = eventCount;
  if (!readStatus(ev)) {
    return false;
  }
  switch (ev.statusHigh) {
    case 0x8:  // note off
    case 0x9:  // note on
    case 0xA:  // poly pressure
    case 0xB:  // controller
    case 0xE:  // pitch wheel
      return readChannelMessage(ev, 2);
    case 0xC:  // program change
    case 0xD:  // channel pressure
      return readChannelMessage(ev, 1);
    case 0xF:
      return ev.statusLow == 0xF ? readMeta(ev) : readSystem(ev);
    default:  // no status byte has been read yet
      return true;
  }
}

bool MidiFile::readStatus(MidiEvent& ev) {
  if (cursor == imageEnd) {
    return false;
  }
  if ((*cursor & kTopBit) != 0) {
    std::uint8_t byte = 0;
    readByte(byte);
    setLowByte(ev.status, byte);
    runningStatus = byte;
  } else {
    ev.status = runningStatus;
  }
  const auto status = static_cast<std::uint16_t>(ev.status);
  ev.statusHigh = static_cast<std::uint8_t>(extractBits(status, 4, 4));
  ev.statusLow = static_cast<std::uint8_t>(extractBits(status, 0, 4));
  return true;
}

bool MidiFile::readChannelMessage(MidiEvent& ev, std::uint32_t length) {
  setLowByte(ev.metaType, kNoMetaType);
  ev.channel = static_cast<std::uint8_t>(ev.statusLow + 1);
  ev.dataLength = length;
  return readPayload(ev);
}

bool MidiFile::readMeta(MidiEvent& ev) {
  std::uint8_t type = 0;
  if (!readByte(type)) {
    return false;
  }
  setLowByte(ev.metaType, type);
  return readVarLen(ev.dataLength) && readPayload(ev);
}

bool MidiFile::readSystem(MidiEvent& ev) { return readVarLen(ev.dataLength) && readPayload(ev); }

bool MidiFile::readPayload(MidiEvent& ev) {
  ev.data = newBytes(ev.dataLength).release();
  memoryRanOut = ev.data == nullptr && ev.dataLength <= static_cast<std::size_t>(imageEnd - cursor);
  return ev.data != nullptr && readBytes(ev.data, ev.dataLength);
}

}  // namespace tavrel
