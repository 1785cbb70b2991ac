#include "samples/iff_file.h"

#include <algorithm>
#include <new>
#include <string_view>
#include <utility>

#include "foundation/byte_order.h"
#include "foundation/console.h"

namespace tavrel {

namespace {

constexpr std::uint32_t kFormHeaderSize = 4 + 4 + 4;
constexpr std::uint32_t kChunkHeaderSize = 4 + 4;
constexpr std::uint32_t kSpareBytes = 255;  // in the image after the file's bytes; never read

/// Returns the four characters of `id`, any of which may be zero. Valid as long as `text`.
std::string_view idView(std::uint32_t id, IffFile::IdText& text) {
  IffFile::idToText(id, text.data());
  return {text.data(), 4};
}

/// Sets `record` to the first record with `id`; returns false without changing it if there is none.
template <typename Chunks, typename Record>
bool findChunk(Chunks& chunks, std::uint32_t id, Record*& record) {
  const auto found =
      std::ranges::find_if(chunks, [id](const IffChunk& chunk) { return chunk.id == id; });
  if (found == chunks.end()) {
    return false;
  }
  record = &*found;
  return true;
}

}  // namespace

IffFile::IffFile(const char* fullName) : disk_(modeRead, fullName, nullptr) {}

bool IffFile::load(std::uint32_t formType) {
  return readFile() && isOfType(formType) && listChunks();
}

bool IffFile::readFile() {
  return disk_.readImage(image_, fileSize_, kSpareBytes) == DiskFile::WholeRead::complete;
}

/// Reports a file that is of another form type or too short to have one.
bool IffFile::isOfType(std::uint32_t formType) const {
  if (fileSize_ >= kFormHeaderSize && loadBig32(image_.get() + 8) == formType) {
    return true;
  }
  IdText text;
  printLine(stderr, "ERROR: This is not a '", idView(formType, text), "' file.");
  return false;
}

bool IffFile::listChunks() {
  formSize_ = loadBig32(image_.get() + 4);
  if (verbose) {
    printLine(stdout, "FORM");
  }
  // Counted first because a vector that grows holds its records twice for a while.
  std::size_t count = 0;
  walkChunks([&count](const IffChunk& /*chunk*/) { ++count; });
  try {
    chunks_.reserve(count);
  } catch (const std::bad_alloc&) {
    return false;
  }
  walkChunks([this](const IffChunk& chunk) { listChunk(chunk); });
  return true;
}

/// Calls `visit` with each chunk of the form, in file order.
template <typename Visit>
void IffFile::walkChunks(Visit visit) {
  bytesWalked_ = 4;
  cursor_ = kFormHeaderSize;
  IffChunk chunk;
  bool isLast = false;
  while (!isLast && readHeader(chunk)) {
    visit(chunk);
    isLast = !skipChunk(chunk) || bytesWalked_ >= formSize_;
  }
}

/// Reads the header at the cursor. Returns false if it is cut off by the end of the file.
bool IffFile::readHeader(IffChunk& chunk) const {
  if (fileSize_ - cursor_ < kChunkHeaderSize) {
    return false;
  }
  const std::uint8_t* header = image_.get() + cursor_;
  chunk.id = loadBig32(header);
  chunk.size = loadBig32(header + 4);
  chunk.data = image_.get() + cursor_ + kChunkHeaderSize;
  return true;
}

/// Moves the cursor past the chunk. Returns false if that is past the end of the file.
bool IffFile::skipChunk(const IffChunk& chunk) {
  const std::uint64_t span = std::uint64_t{kChunkHeaderSize} + chunk.size + chunk.size % 2;
  if (span > fileSize_ - cursor_) {
    return false;
  }
  cursor_ += static_cast<std::uint32_t>(span);
  bytesWalked_ += static_cast<std::uint32_t>(span);
  return true;
}

void IffFile::listChunk(const IffChunk& chunk) {
  chunks_.push_back(chunk);
  if (verbose) {
    IdText text;
    printLine(stdout, "    ", idView(chunk.id, text));
  }
}

bool IffFile::hasChunk(std::uint32_t id) const {
  const IffChunk* record = nullptr;
  return findChunk(chunks_, id, record);
}

bool IffFile::getChunk(std::uint32_t id, std::uint8_t*& data, std::uint32_t& size) const {
  const IffChunk* record = nullptr;
  if (!findChunk(chunks_, id, record)) {
    return false;
  }
  data = record->data;
  size = record->size;
  return true;
}

ByteBlock IffFile::takeImage() { return std::move(image_); }

void IffFile::idToText(std::uint32_t id, char* text) {
  storeBig32(reinterpret_cast<std::uint8_t*>(text), id);
  text[4] = '\0';
}

bool IffFile::getChunkSize(std::uint32_t id, std::uint32_t& size) const {
  std::uint8_t* data = nullptr;
  return getChunk(id, data, size);
}

bool IffFile::getChunkRecord(std::uint32_t id, IffChunk*& record) {
  return findChunk(chunks_, id, record);
}

bool IffFile::getChunkRecord(std::uint32_t id, const IffChunk*& record) const {
  return findChunk(chunks_, id, record);
}

void IffFile::releaseImage() { image_.reset(); }

std::uint32_t IffFile::bytesHeld(const std::uint8_t* data, std::uint32_t size) const {
  const auto left = static_cast<std::uint32_t>(image_.get() + fileSize_ - data);
  return std::min(size, left);
}

}  // namespace tavrel
