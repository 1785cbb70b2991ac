// The platform's multimedia file calls, as far as RIFF files need them, written portably. A handle
// is owned by the caller of `mmioOpenA` until `mmioClose`. Failures are returned as null, a
// non-zero result or a short count; nothing throws.
//
// A chunk of a RIFF file, numbers little-endian:
//
// | offset | width | content                                                            |
// |--------|-------|--------------------------------------------------------------------|
// | 0      | 4     | id, four characters                                                |
// | 4      | 4     | size of the content                                                |
// | 8      | size  | content; for the ids "RIFF" and "LIST" a form type of four         |
// |        |       | characters, then chunks                                            |
// |        | 0, 1  | pad byte if size is odd; not counted in size                       |
//
// Sizes may be wrong. They are added up in 64 bits, and a chunk is found only if its whole header,
// including a form type, is inside both its parent and the file.
#pragma once

#include <cstdint>

namespace tavrel {

class MmioFile;
using MmioHandle = MmioFile*;

/// A chunk's header and position. Ids and form types hold the first of their four characters in the
/// least significant byte.
struct ChunkInfo {
  std::uint32_t chunkId{};
  std::uint32_t chunkSize{};   ///< as stated in the file
  std::uint32_t formType{};    ///< 0 if the chunk has none
  std::uint32_t dataOffset{};  ///< of the content, from the start of the file
  std::uint32_t flags{};
};
static_assert(sizeof(ChunkInfo) == 5 * sizeof(std::uint32_t));

constexpr std::uint32_t kMmioBuffered = 0x10000;

// Flags of `mmioDescend`: what it finds.
constexpr std::uint32_t kMmioFindAny = 0;     ///< any chunk, whose form type isn't read
constexpr std::uint32_t kMmioFindChunk = 16;  ///< a chunk with the id in the record
constexpr std::uint32_t kMmioFindRiff = 32;   ///< a RIFF chunk with the form type in the record
constexpr std::uint32_t kMmioFindList = 64;   ///< a LIST chunk with the form type in the record

constexpr std::uint32_t kMmioChunkNotFound = 1;

/// Opens a file for buffered reading. `info` must be null and `flags` `kMmioBuffered`; both are
/// ignored. Returns null if `name` is not that of a regular file or if memory runs out.
MmioHandle mmioOpenA(const char* name, const void* info, std::uint32_t flags);

/// Finds a chunk, reading forward from the current position to the end of `parent`, or of the file
/// if `parent` is null. Returns 0 after filling `info` and moving to the chunk's content, after the
/// form type if that was searched for. Returns `kMmioChunkNotFound` if there is no such chunk.
std::uint32_t mmioDescend(MmioHandle handle, ChunkInfo* info, const ChunkInfo* parent,
                          std::uint32_t flags);

/// Reads at the current position. Returns the number of bytes read.
std::uint32_t mmioRead(MmioHandle handle, void* destination, std::uint32_t count);

/// Moves past the chunk that `info` describes and its pad byte. Returns 0.
std::uint32_t mmioAscend(MmioHandle handle, const ChunkInfo* info, std::uint32_t flags);

/// Closes the file and frees the handle. Returns 0.
std::uint32_t mmioClose(MmioHandle handle, std::uint32_t flags);

/// Returns the number of bytes from the current position to the end of the file.
std::uint64_t mmioBytesLeft(MmioHandle handle);

}  // namespace tavrel
