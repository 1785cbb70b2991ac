#include "samples/iff_file.h"

#include <algorithm>
#include <exception>
#include <string_view>
#include <utility>

#include "foundation/byte_order.h"
#include "foundation/console.h"

namespace tavrel {

namespace {

constexpr std::uint32_t kFormSizeEnd = 4 + 4;  // the form size counts what follows
constexpr std::uint32_t kFormHeaderSize = kFormSizeEnd + 4;
constexpr std::uint32_t kChunkHeaderSize = 4 + 4;
constexpr std::uint32_t kSpareBytes = 255;  // in the image after the file's bytes; never read

/// Returns the four characters of `id`, any of which may be zero. Valid as long as `text`.
std::string_view idView(std::uint32_t id, IffFile::IdText& text) {
  IffFile::idToText(id, text.data());
  return {text.data(), 4};
}

IffChunk chunkAt(std::uint8_t* header) {
  return {loadBig32(header), loadBig32(header + 4), header + kChunkHeaderSize};
}

/// Sets `record` to the first record with `id`; returns false without changing it if there is none.
template <typename Chunks, typename Record>
bool findChunk(Chunks& chunks, std::uint32_t id, Record*& record) {
  const auto found = std::find_if(chunks.begin(), chunks.end(),
                                  [id](const IffChunk& chunk) { return chunk.id == id; });
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

bool IffFile::fail(IffFault fault) {
  fault_ = fault;
  return false;
}

bool IffFile::readFile() {
  switch (disk_.readImage(image_, fileSize_, kSpareBytes)) {
    case DiskFile::WholeRead::complete:
      return true;
    case DiskFile::WholeRead::noMemory:
      return fail(IffFault::noMemory);
    default:
      return fail(IffFault::cannotRead);
  }
}

/// Reports a file that is of another form type or too short to have one.
bool IffFile::isOfType(std::uint32_t formType) {
  if (fileSize_ >= kFormHeaderSize && loadBig32(image_.get() + 8) == formType) {
    return true;
  }
  IdText text;
  printLine(stderr, "ERROR: This is not a '", idView(formType, text), "' file.");
  return fail(IffFault::noForm);
}

bool IffFile::listChunks() {
  if (verbose) {
    printLine(stdout, "FORM");
  }
  // Counted first because a vector that grows holds its records twice for a while.
  std::size_t count = 0;
  walkChunks([&count](const IffChunk& /*chunk*/) { ++count; });
  try {
    chunks_.reserve(count);
  } catch (const std::exception&) {  // std::length_error on hosts of 32 bits
    return fail(IffFault::noMemory);
  }
  walkChunks([this](const IffChunk& chunk) { listChunk(chunk); });
  return true;
}

/// Calls `visit` with each chunk of the form, in file order.
template <typename Visit>
void IffFile::walkChunks(Visit visit) const {
  const std::uint32_t formSize = loadBig32(image_.get() + 4);
  std::uint32_t cursor = kFormHeaderSize;
  while (fileSize_ - cursor >= kChunkHeaderSize) {
    const IffChunk chunk = chunkAt(image_.get() + cursor);
    visit(chunk);
    const std::uint64_t span = std::uint64_t{kChunkHeaderSize} + chunk.size + chunk.size % 2;
    cursor += static_cast<std::uint32_t>(std::min<std::uint64_t>(span, fileSize_ - cursor));
    if (cursor - kFormSizeEnd >= formSize) {
      return;
    }
  }
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
