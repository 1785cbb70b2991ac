#include "platform/mmio.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <limits>
#include <memory>
#include <new>
#include <string>

#include "foundation/byte_order.h"
#include "platform/file_cache.h"
#include "platform/host_path.h"
#include "platform/transfer.h"

namespace tavrel {

namespace {

constexpr std::size_t kBufferSize = 4096;
constexpr std::size_t kHeaderSize = 4 + 4;
constexpr std::size_t kFormTypeSize = 4;
constexpr std::uint32_t kRiff = littleFourCc("RIFF");
constexpr std::uint32_t kList = littleFourCc("LIST");

/// Returns the offset after the chunk and its pad byte, which may be past the end of the file.
std::uint64_t endOf(const ChunkInfo& chunk) {
  return std::uint64_t{chunk.dataOffset} + chunk.chunkSize + chunk.chunkSize % 2;
}

}  // namespace

/// An open file with a read buffer. Changing the position costs nothing until the next read.
class MmioFile {
 public:
  bool open(const std::string& path);

  /// Reads up to `count` bytes; fewer only at the end of the file or after a failure. Reads larger
  /// than the buffer bypass it.
  std::size_t read(std::uint8_t* destination, std::size_t count);

  /// Returns the number of bytes from the position to `limit` or to the end of the file.
  [[nodiscard]] std::uint64_t bytesUpTo(std::uint64_t limit) const {
    const std::uint64_t end = std::min(limit, size);
    return position < end ? end - position : 0;
  }

  std::uint64_t position = 0;
  std::uint64_t size = 0;

 private:
  bool openCached(const std::string& path);
  bool openOnDisk(const std::string& path);
  std::size_t readBuffered(std::uint8_t* destination, std::size_t count);
  std::size_t readStream(std::uint8_t* destination, std::size_t count);

  std::unique_ptr<std::streambuf> cached_;  // if the file is one of the cache
  std::ifstream stream_;
  std::uint64_t streamPosition_ = 0;
  std::array<std::uint8_t, kBufferSize> buffer_{};
  std::uint64_t bufferStart_ = 0;
  std::size_t buffered_ = 0;
};

bool MmioFile::openCached(const std::string& path) {
  cached_ = openCachedFile(path);
  if (cached_) {
    static_cast<std::ios&>(stream_).rdbuf(cached_.get());
  }
  return cached_ != nullptr;
}

bool MmioFile::openOnDisk(const std::string& path) {
  if (pathKind(path.c_str()) != PathKind::file) {
    return false;
  }
  stream_.rdbuf()->pubsetbuf(nullptr, 0);  // `buffer_` is the only buffer
  stream_.open(path, std::ios::in | std::ios::binary);
  return true;
}

bool MmioFile::open(const std::string& path) {
  if (!openCached(path) && !openOnDisk(path)) {
    return false;
  }
  stream_.seekg(0, std::ios::end);
  const std::streamoff end = stream_.tellg();
  if (!stream_ || end < 0) {
    return false;
  }
  size = static_cast<std::uint64_t>(end);
  streamPosition_ = size;
  return true;
}

std::size_t MmioFile::read(std::uint8_t* destination, std::size_t count) {
  count = static_cast<std::size_t>(std::min<std::uint64_t>(count, bytesUpTo(size)));
  const std::size_t front = readBuffered(destination, count);
  const std::size_t rest = count - front;
  if (rest == 0) {
    return front;
  }
  if (rest >= kBufferSize) {
    const std::size_t direct = readStream(destination + front, rest);
    position += direct;
    return front + direct;
  }
  bufferStart_ = position;
  buffered_ =
      readStream(buffer_.data(),
                 static_cast<std::size_t>(std::min<std::uint64_t>(kBufferSize, bytesUpTo(size))));
  return front + readBuffered(destination + front, rest);
}

/// Takes up to `count` bytes from the buffer, as far as it holds those at the position.
std::size_t MmioFile::readBuffered(std::uint8_t* destination, std::size_t count) {
  if (position < bufferStart_ || position - bufferStart_ >= buffered_) {
    return 0;
  }
  const auto offset = static_cast<std::size_t>(position - bufferStart_);
  const std::size_t taken = std::min(count, buffered_ - offset);
  std::copy_n(buffer_.data() + offset, taken, destination);
  position += taken;
  return taken;
}

/// Reads `count` bytes from the file at the position, without moving the position.
std::size_t MmioFile::readStream(std::uint8_t* destination, std::size_t count) {
  if (streamPosition_ != position) {
    stream_.seekg(static_cast<std::streamoff>(position));
  }
  const auto done = static_cast<std::size_t>(readBytes(stream_, destination, count));
  streamPosition_ = position + done;
  stream_.clear();
  return done;
}

namespace {

/// Reads the header at the position. Returns false if it doesn't end before `limit`, or if its
/// content starts at 4 GiB or beyond, which ChunkInfo can't express.
bool readHeader(MmioFile& file, std::uint64_t limit, ChunkInfo& chunk) {
  std::array<std::uint8_t, kHeaderSize> header{};
  if (file.bytesUpTo(limit) < header.size() ||
      file.read(header.data(), header.size()) < header.size() ||
      file.position > std::numeric_limits<std::uint32_t>::max()) {
    return false;
  }
  chunk = {};
  chunk.chunkId = loadLittle32(header.data());
  chunk.chunkSize = loadLittle32(header.data() + 4);
  chunk.dataOffset = static_cast<std::uint32_t>(file.position);
  return true;
}

/// Reads the form type at the position. Returns false if it doesn't fit into the chunk or doesn't
/// end before `limit`.
bool readFormType(MmioFile& file, std::uint64_t limit, ChunkInfo& chunk) {
  std::array<std::uint8_t, kFormTypeSize> type{};
  if (chunk.chunkSize < type.size() || file.bytesUpTo(limit) < type.size() ||
      file.read(type.data(), type.size()) < type.size()) {
    return false;
  }
  chunk.formType = loadLittle32(type.data());
  return true;
}

bool isWanted(MmioFile& file, std::uint64_t limit, ChunkInfo& chunk, const ChunkInfo& wanted,
              std::uint32_t flags) {
  if (flags == kMmioFindAny) {
    return true;
  }
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
    auto file = std::make_unique<MmioFile>();
    return file->open(hostPath(name)) ? file.release() : nullptr;
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
