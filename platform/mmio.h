// The platform's multimedia file calls, as far as walking a RIFF file needs them: the same on every
// host. A handle owns one open file and is owned by whoever opened it, until `mmioClose`.
// Failures are told by null, a non-zero result or a short count; nothing throws.
//
// A chunk of a RIFF file, numbers little-endian:
//
// | offset | width | content                                                            |
// |--------|-------|--------------------------------------------------------------------|
// | 0      | 4     | id, four characters                                                |
// | 4      | 4     | size of the content                                                |
// | 8      | size  | content; that of the ids "RIFF" and "LIST" is a form type of four  |
// |        |       | characters, then chunks                                            |
// |        | 0, 1  | pad byte if size is odd; not counted in size                       |
//
// Sizes are claims. They are followed in 64 bits, and a chunk is taken for one only if its header,
// form type included, lies wholly inside its parent and inside the file.
#pragma once

#include <cstdint>

namespace tavrel {

class MmioFile;
using MmioHandle = MmioFile*;

/// What is known of one chunk. Ids and form types hold the first of their four characters in the
/// least significant byte.
struct ChunkInfo {
  std::uint32_t chunkId = 0;
  std::uint32_t chunkSize = 0;   ///< as claimed in the file
  std::uint32_t formType = 0;    ///< 0 if the chunk has none
  std::uint32_t dataOffset = 0;  ///< of the content, counted from the start of the file
  std::uint32_t flags = 0;
};
static_assert(sizeof(ChunkInfo) == 5 * sizeof(std::uint32_t));

constexpr std::uint32_t kMmioBuffered = 0x10000;

// What `mmioDescend` looks for.
constexpr std::uint32_t kMmioFindChunk = 16;  ///< a chunk with the id in the record
constexpr std::uint32_t kMmioFindRiff = 32;   ///< a RIFF chunk with the form type in the record
constexpr std::uint32_t kMmioFindList = 64;   ///< a LIST chunk with the form type in the record

constexpr std::uint32_t kMmioChunkNotFound = 1;

/// Opens a file for buffered reading. `info` is null and `flags` is `kMmioBuffered`: there is no
/// other way to open one here. Null if there is no such file, or anything else than a regular file.
MmioHandle mmioOpenA(const char* name, const void* info, std::uint32_t flags);

/// Finds a chunk, reading forward from the current position up to the end of `parent`, or of the
/// file if that is null. 0: found, `info` describes it, and the position is at its content, behind
/// the form type if that was looked for. `kMmioChunkNotFound`: there is no such chunk.
std::uint32_t mmioDescend(MmioHandle handle, ChunkInfo* info, const ChunkInfo* parent,
                          std::uint32_t flags);

/// Reads at the current position, and gives the count of bytes that came.
std::uint32_t mmioRead(MmioHandle handle, void* destination, std::uint32_t count);

/// Moves behind the chunk that `info` describes, its pad byte included. Always 0.
std::uint32_t mmioAscend(MmioHandle handle, const ChunkInfo* info, std::uint32_t flags);

/// Closes the file and ends the handle. Always 0.
std::uint32_t mmioClose(MmioHandle handle, std::uint32_t flags);

/// How many bytes lie between the current position and the end of the file.
std::uint64_t mmioBytesLeft(MmioHandle handle);

}  // namespace tavrel
