#include "midi/midi_file.h"

#include <string_view>
#include <utility>

#include "foundation/byte_order.h"
#include "foundation/console.h"

namespace tavrel {

namespace {

bool failParse(const char* message) {
  printLine(stderr, message);
  return false;
}

bool failTruncated() { return failParse("Error: premature EOF."); }

}  // namespace

MidiFile::MidiFile() { disk_.setMode(modeRead); }

MidiFile::MidiFile(const char* name) : disk_(modeRead, name, "") {}

bool MidiFile::loadImage() {
  ByteBlock bytes;
  std::uint32_t size = 0;
  const DiskFile::WholeRead result = disk_.readImage(bytes, size);
  return !disk_.reportError() && result == DiskFile::WholeRead::complete &&
         useImage(std::move(bytes), size);
}

bool MidiFile::useImage(ByteBlock bytes, std::uint32_t size) {
  if (!bytes || size == 0) {
    return false;
  }
  image = std::move(bytes);
  imageSize = size;
  cursor = image.get();
  imageEnd = cursor + size;
  atEnd = 0;
  bytesRead = 0;
  eventCount = 0;
  return true;
}

bool MidiFile::readIdentifier(std::array<char, 4 + 1>& identifier) {
  return readBytes(reinterpret_cast<std::uint8_t*>(identifier.data()), 4);
}

bool MidiFile::readHeaderChunk() {
  if (!readIdentifier(headerId)) {
    return false;
  }
  if (std::string_view(headerId.data(), 4) != "MThd") {
    return failParse("Error: Not a standard midi file.");
  }
  if (!readLong(headerLength) || !readWord(format) || !readWord(numberOfTracks) ||
      !readWord(ppqn)) {
    return failTruncated();
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
    return failParse("Error: Not a standard midi file track header");
  }
  if (!readLong(trackLength)) {
    return failTruncated();
  }
  trackValid = 1;
  trackDataOffset = bytesRead;
  return true;
}

bool MidiFile::loadType0() {
  return loadImage() && readHeaderChunk() && readTrackHeader() && format == 0;
}

bool MidiFile::readWord(std::uint16_t& out) {
  std::array<std::uint8_t, 2> bytes{};
  if (!readBytes(bytes.data(), bytes.size())) {
    return false;
  }
  out = loadBig16(bytes.data());
  return true;
}

bool MidiFile::readLong(std::uint32_t& out) {
  std::array<std::uint8_t, 4> bytes{};
  if (!readBytes(bytes.data(), bytes.size())) {
    return false;
  }
  out = loadBig32(bytes.data());
  return true;
}

bool MidiFile::writeImageAs(const char* fileName) {
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
