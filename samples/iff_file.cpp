#include "samples/iff_file.h"

#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

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
  if (verbose) {
    printLine(stdout, "FORM");
  }
  // Counted first: a list that grows holds its records twice for a while.
  std::size_t count = 0;
  walkChunks([&count](const IffChunk& /*chunk*/) { ++count; });
  try {
    chunks.reserve(count);
  } catch (const std::bad_alloc&) {
    return false;
  }
  walkChunks([this](const IffChunk& chunk) { listChunk(chunk); });
  return true;
}

/// Gives every chunk of the form to `visit`, in file order.
template <typename Visit>
void IffFile::walkChunks(Visit visit) {
  bytesWalked = 4;
  cursor = kFormHeaderSize;
  IffChunk chunk;
  bool formGoesOn = true;
  while (formGoesOn && readChunk(chunk)) {
    visit(chunk);
    formGoesOn = passChunk(chunk) && bytesWalked < formSize;
  }
}

/// Reads the header at the cursor. False if the file doesn't hold it wholly.
bool IffFile::readChunk(IffChunk& chunk) const {
  if (fileSize - cursor < kChunkHeaderSize) {
    return false;
  }
  SoundConvert::readLong(chunk.id, image.get() + cursor);
  SoundConvert::readLong(chunk.size, image.get() + cursor + 4);
  chunk.data = image.get() + cursor + kChunkHeaderSize;
  return true;
}

/// Moves behind the chunk. False if it passes the end of the file.
bool IffFile::passChunk(const IffChunk& chunk) {
  const std::uint64_t span = std::uint64_t{kChunkHeaderSize} + chunk.size + chunk.size % 2;
  if (span > fileSize - cursor) {
    return false;
  }
  cursor += static_cast<std::uint32_t>(span);
  bytesWalked += static_cast<std::uint32_t>(span);
  return true;
}

void IffFile::listChunk(const IffChunk& chunk) {
  chunks.push_back(chunk);
  if (verbose) {
    IdText text;
    printLine(stdout, "    ", idView(chunk.id, text));
  }
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

ByteBlock IffFile::takeImage() { return std::move(image); }

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
