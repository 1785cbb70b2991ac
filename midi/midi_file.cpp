#include "midi/midi_file.h"

#include <string_view>

#include "foundation/console.h"

namespace tavrel {

namespace {

bool refuse(const char* reason) {
  printLine(stderr, reason);
  return false;
}

bool prematureEnd() { return refuse("Error: premature EOF."); }

}  // namespace

MidiFile::MidiFile() { disk.setMode(modeRead); }

MidiFile::MidiFile(const char* name) : disk(modeRead, name, "") {}

bool MidiFile::loadImage() {
  disk.open();
  if (disk.reportError()) {
    return false;
  }
  std::uint32_t size = 0;
  disk.getSize(size);
  if (disk.reportError() || size == 0) {
    return false;
  }
  imageSize = size;
  cursor = nullptr;
  imageEnd = nullptr;
  image.reset();
  image = newBytes(size);
  if (!image) {
    return false;
  }
  disk.read(image.get(), size);
  if (disk.reportError()) {
    return false;
  }
  disk.close();
  if (disk.reportError()) {
    return false;
  }
  cursor = image.get();
  imageEnd = cursor + size;
  atEnd = 0;
  bytesRead = 0;
  eventCount = 0;
  return true;
}

bool MidiFile::readIdentifier(std::array<char, 4 + 1>& identifier) {
  for (std::size_t i = 0; i < 4; ++i) {
    std::uint8_t byte = 0;
    if (!readByte(byte)) {
      return false;
    }
    identifier[i] = static_cast<char>(byte);
  }
  identifier[4] = '\0';
  return true;
}

bool MidiFile::readHeaderChunk() {
  if (!readIdentifier(headerId)) {
    return false;
  }
  if (std::string_view(headerId.data(), 4) != "MThd") {
    return refuse("Error: Not a standard midi file.");
  }
  if (!readLong(headerLength) || !readWord(format) || !readWord(numberOfTracks) ||
      !readWord(ppqn)) {
    return prematureEnd();
  }
  headerValid = 1;
  return true;
}

bool MidiFile::readTrackHeader() {
  trackHeaderOffset = bytesRead;
  if (!readIdentifier(trackId)) {
    return false;
  }
  if (std::string_view(trackId.data(), 4) != "MTrk") {
    return refuse("Error: Not a standard midi file track header");
  }
  if (!readLong(trackLength)) {
    return prematureEnd();
  }
  trackValid = 1;
  trackDataOffset = bytesRead;
  return true;
}

bool MidiFile::loadType0() {
  return loadImage() && readHeaderChunk() && readTrackHeader() && format == 0;
}

bool MidiFile::readWord(std::uint16_t& out) {
  std::uint8_t high = 0;
  std::uint8_t low = 0;
  if (!readByte(high) || !readByte(low)) {
    return false;
  }
  out = static_cast<std::uint16_t>(high << 8U | low);
  return true;
}

bool MidiFile::readLong(std::uint32_t& out) {
  std::uint16_t high = 0;
  std::uint16_t low = 0;
  if (!readWord(high) || !readWord(low)) {
    return false;
  }
  out = std::uint32_t{high} << 16U | low;
  return true;
}

bool MidiFile::writeImageAs(const char* fileName) {
  if (!isImageWhole()) {
    return false;
  }
  DiskFile file(modeWrite, fileName, "");
  file.open();
  if (file.reportError()) {
    return false;
  }
  file.write(image.get(), imageSize);
  if (file.reportError()) {
    return false;
  }
  file.close();
  return !file.reportError();
}

}  // namespace tavrel
