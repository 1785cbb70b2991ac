#include "platform/mmio.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>
#include <memory>
#include <new>
#include <string>

#include "platform/host_path.h"
#include "platform/transfer.h"

namespace tavrel {

namespace {

constexpr std::size_t kBufferSize = 4096;
constexpr std::size_t kHeaderSize = 4 + 4;
constexpr std::size_t kFormTypeSize = 4;
constexpr std::uint32_t kRiff = 0x46464952;  // "RIFF", first character lowest
constexpr std::uint32_t kList = 0x5453494C;  // "LIST"

std::uint32_t littleEndian(const std::uint8_t* bytes) {
  return bytes[0] | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
         std::uint32_t{bytes[3]} << 24;
}

/// Where the chunk behind this one begins, or would begin: a claim may point past any file.
std::uint64_t endOf(const ChunkInfo& chunk) {
  return std::uint64_t{chunk.dataOffset} + chunk.chunkSize + chunk.chunkSize % 2;
}

}  // namespace

/// An open file, a part of it in memory, and the position of the next read. Moving on costs
/// nothing until something is read.
class MmioFile {
 public:
  bool open(const std::string& path);

  /// Reads up to `count` bytes, fewer only at the end of the file or on a failure. What is larger
  /// than the buffer goes straight to its destination.
  std::size_t read(std::uint8_t* destination, std::size_t count);

  /// How many bytes lie between the position and `limit`, the end of the file at most.
  [[nodiscard]] std::uint64_t bytesUpTo(std::uint64_t limit) const {
    const std::uint64_t end = std::min(limit, size);
    return position < end ? end - position : 0;
  }

  std::uint64_t position = 0;
  std::uint64_t size = 0;

 private:
  std::size_t takeBuffered(std::uint8_t* destination, std::size_t count);
  std::size_t readStream(std::uint8_t* destination, std::size_t count);

  std::ifstream stream;
  std::uint64_t streamPosition = 0;
  std::array<std::uint8_t, kBufferSize> buffer{};
  std::uint64_t bufferStart = 0;
  std::size_t buffered = 0;
};

bool MmioFile::open(const std::string& path) {
  stream.rdbuf()->pubsetbuf(nullptr, 0);  // ours is the only buffer
  stream.open(path, std::ios::in | std::ios::binary);
  stream.seekg(0, std::ios::end);
  const std::streamoff end = stream.tellg();
  if (!stream || end < 0) {
    return false;
  }
  size = static_cast<std::uint64_t>(end);
  streamPosition = size;
  return true;
}

std::size_t MmioFile::read(std::uint8_t* destination, std::size_t count) {
  count = static_cast<std::size_t>(std::min<std::uint64_t>(count, bytesUpTo(size)));
  const std::size_t front = takeBuffered(destination, count);
  const std::size_t rest = count - front;
  if (rest == 0) {
    return front;
  }
  if (rest >= kBufferSize) {
    const std::size_t came = readStream(destination + front, rest);
    position += came;
    return front + came;
  }
  bufferStart = position;
  buffered =
      readStream(buffer.data(),
                 static_cast<std::size_t>(std::min<std::uint64_t>(kBufferSize, bytesUpTo(size))));
  return front + takeBuffered(destination + front, rest);
}

std::size_t MmioFile::takeBuffered(std::uint8_t* destination, std::size_t count) {
  if (position < bufferStart || position - bufferStart >= buffered) {
    return 0;
  }
  const auto offset = static_cast<std::size_t>(position - bufferStart);
  const std::size_t taken = std::min(count, buffered - offset);
  std::copy_n(buffer.data() + offset, taken, destination);
  position += taken;
  return taken;
}

std::size_t MmioFile::readStream(std::uint8_t* destination, std::size_t count) {
  if (streamPosition != position) {
    stream.seekg(static_cast<std::streamoff>(position));
  }
  const auto came = static_cast<std::size_t>(readBytes(stream, destination, count));
  streamPosition = position + came;
  stream.clear();
  return came;
}

namespace {

/// Reads the header at the position; false if none lies wholly in front of `limit`, or so far into
/// the file that no ChunkInfo can hold its place.
bool readHeader(MmioFile& file, std::uint64_t limit, ChunkInfo& chunk) {
  std::array<std::uint8_t, kHeaderSize> header{};
  if (file.bytesUpTo(limit) < header.size() ||
      file.read(header.data(), header.size()) < header.size() ||
      file.position > std::numeric_limits<std::uint32_t>::max()) {
    return false;
  }
  chunk = {};
  chunk.chunkId = littleEndian(header.data());
  chunk.chunkSize = littleEndian(header.data() + 4);
  chunk.dataOffset = static_cast<std::uint32_t>(file.position);
  return true;
}

/// Reads the form type at the position; false if the chunk has no room for one in front of `limit`.
bool readFormType(MmioFile& file, std::uint64_t limit, ChunkInfo& chunk) {
  std::array<std::uint8_t, kFormTypeSize> type{};
  if (chunk.chunkSize < type.size() || file.bytesUpTo(limit) < type.size() ||
      file.read(type.data(), type.size()) < type.size()) {
    return false;
  }
  chunk.formType = littleEndian(type.data());
  return true;
}

bool isWanted(MmioFile& file, std::uint64_t limit, ChunkInfo& chunk, const ChunkInfo& wanted,
              std::uint32_t flags) {
  if (flags == kMmioFindChunk) {
    return chunk.chunkId == wanted.chunkId;
  }
  return chunk.chunkId == (flags == kMmioFindRiff ? kRiff : kList) &&
         readFormType(file, limit, chunk) && chunk.formType == wanted.formType;
}

}  // namespace

MmioHandle mmioOpenA(const char* name, const void* /*info*/, std::uint32_t /*flags*/) {
  if (name == nullptr) {
    return nullptr;
  }
  try {
    const std::string path = hostPath(name);
    if (pathKind(path.c_str()) != PathKind::file) {
      return nullptr;
    }
    auto file = std::make_unique<MmioFile>();
    return file->open(path) ? file.release() : nullptr;
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

std::uint32_t mmioDescend(MmioHandle handle, ChunkInfo* info, const ChunkInfo* parent,
                          std::uint32_t flags) {
  const std::uint64_t limit =
      parent != nullptr ? std::uint64_t{parent->dataOffset} + parent->chunkSize : handle->size;
  ChunkInfo chunk;
  while (readHeader(*handle, limit, chunk)) {
    if (isWanted(*handle, limit, chunk, *info, flags)) {
      *info = chunk;
      return 0;
    }
    handle->position = endOf(chunk);
  }
  return kMmioChunkNotFound;
}

std::uint32_t mmioRead(MmioHandle handle, void* destination, std::uint32_t count) {
  return static_cast<std::uint32_t>(handle->read(static_cast<std::uint8_t*>(destination), count));
}

std::uint32_t mmioAscend(MmioHandle handle, const ChunkInfo* info, std::uint32_t /*flags*/) {
  handle->position = endOf(*info);
  return 0;
}

std::uint32_t mmioClose(MmioHandle handle, std::uint32_t /*flags*/) {
  delete handle;
  return 0;
}

std::uint64_t mmioBytesLeft(MmioHandle handle) { return handle->bytesUpTo(handle->size); }

}  // namespace tavrel
