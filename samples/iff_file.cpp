#include "samples/iff_file.h"

#include <algorithm>
#include <new>
#include <string_view>

#include "foundation/console.h"
#include "samples/sound_convert.h"

namespace tavrel {

namespace {

constexpr std::uint32_t kFormHeaderSize = 4 + 4 + 4;
constexpr std::uint32_t kChunkHeaderSize = 4 + 4;
constexpr std::size_t kSpareBytes = 255;  // behind the file: a reader may look a record ahead

/// The four characters of `id`, which may be any bytes, for printing. Lives as long as `text`.
std::string_view idView(std::uint32_t id, IffFile::IdText& text) {
  IffFile::idToText(id, text.data());
  return {text.data(), 4};
}

}  // namespace

IffFile::IffFile(const char* fullName) : disk(modeRead, fullName, nullptr) {}

bool IffFile::load(std::uint32_t formType) {
  return readImage() && isOfType(formType) && listChunks();
}

bool IffFile::readImage() {
  if (!disk.open()) {
    return false;
  }
  bool complete = disk.getSize(fileSize);
  if (complete) {
    image = newBytes(fileSize + kSpareBytes);
    complete = image && disk.read(image.get(), fileSize);
  }
  return disk.close() && complete;
}

/// Tells a file of another form type, or too short to have one, in a line.
bool IffFile::isOfType(std::uint32_t formType) const {
  if (fileSize >= kFormHeaderSize) {
    std::uint32_t type = 0;
    SoundConvert::readLong(type, image.get() + 8);
    if (type == formType) {
      return true;
    }
  }
  IdText text;
  printLine(stderr, "ERROR: This is not a '", idView(formType, text), "' file.");
  return false;
}

bool IffFile::listChunks() {
  SoundConvert::readLong(formSize, image.get() + 4);
  bytesWalked = 4;
  cursor = kFormHeaderSize;
  if (verbose) {
    printLine(stdout, "FORM");
  }
  try {
    bool formGoesOn = true;
    while (formGoesOn) {
      formGoesOn = listNextChunk() && bytesWalked < formSize;
    }
  } catch (const std::bad_alloc&) {
    return false;
  }
  return true;
}

/// Appends the chunk at the cursor and moves behind it. False if the walk ends here, with or
/// without another chunk. Throws std::bad_alloc.
bool IffFile::listNextChunk() {
  const std::uint32_t left = fileSize - cursor;
  if (left < kChunkHeaderSize) {
    return false;
  }
  IffChunk chunk;
  SoundConvert::readLong(chunk.id, image.get() + cursor);
  SoundConvert::readLong(chunk.size, image.get() + cursor + 4);
  chunk.data = image.get() + cursor + kChunkHeaderSize;
  if (verbose) {
    IdText text;
    printLine(stdout, "    ", idView(chunk.id, text));
  }
  chunks.push_back(chunk);
  const std::uint64_t span = std::uint64_t{kChunkHeaderSize} + chunk.size + chunk.size % 2;
  if (span > left) {
    return false;
  }
  cursor += static_cast<std::uint32_t>(span);
  bytesWalked += static_cast<std::uint32_t>(span);
  return true;
}

bool IffFile::hasChunk(std::uint32_t id) const {
  const IffChunk* record = nullptr;
  return getChunkRecord(id, record);
}

bool IffFile::getChunk(std::uint32_t id, std::uint8_t*& data, std::uint32_t& size) const {
  const IffChunk* record = nullptr;
  if (!getChunkRecord(id, record)) {
    return false;
  }
  data = record->data;
  size = record->size;
  return true;
}

bool IffFile::getChunkSize(std::uint32_t id, std::uint32_t& size) const {
  std::uint8_t* data = nullptr;
  return getChunk(id, data, size);
}

bool IffFile::getChunkRecord(std::uint32_t id, const IffChunk*& record) const {
  const auto found = std::find_if(chunks.begin(), chunks.end(),
                                  [id](const IffChunk& chunk) { return chunk.id == id; });
  if (found == chunks.end()) {
    return false;
  }
  record = &*found;
  return true;
}

void IffFile::releaseImage() { image.reset(); }

void IffFile::idToText(std::uint32_t id, char* text) {
  for (unsigned i = 0; i < 4; ++i) {
    text[i] = static_cast<char>(id >> (24 - 8 * i));
  }
  text[4] = '\0';
}

std::uint32_t IffFile::bytesHeld(const std::uint8_t* data, std::uint32_t size) const {
  const auto left = static_cast<std::uint32_t>(image.get() + fileSize - data);
  return std::min(size, left);
}

}  // namespace tavrel
