#include "kit/check/wave_chunks.h"

#include <algorithm>
#include <array>
#include <new>

#include "foundation/byte_order.h"
#include "samples/riff_file.h"

namespace tavrel::kit {

namespace {

// An extensible `fmt ` chunk:
//
// | offset | width | content                                                        |
// |--------|-------|----------------------------------------------------------------|
// | 0      | 24    | the plain format block, valid bits and the speakers            |
// | 24     | 2     | the format tag, the first part of the identifier of the format |
// | 26     | 14    | the rest of it, the same for all standard formats              |
constexpr std::size_t kSubFormat = 24;
constexpr std::array<std::uint8_t, 14> kStandardFormat{0, 0, 0,    0, 0x10, 0,    0x80,
                                                       0, 0, 0xAA, 0, 0x38, 0x9B, 0x71};
constexpr std::size_t kExtensibleSize = kSubFormat + 2 + kStandardFormat.size();

// A `smpl` chunk:
//
// | offset | width | content                                                        |
// |--------|-------|----------------------------------------------------------------|
// | 0      | 28    | seven numbers of the instrument                                |
// | 28     | 4     | number of loops                                                |
// | 32     | 4     | size of what follows the loops                                 |
// | 36     | 24    | a loop: its name, type, first frame, last frame, fraction and  |
// |        |       | count                                                          |
constexpr std::size_t kLoopCount = std::size_t{7} * 4;
constexpr std::size_t kSamplerSize = kLoopCount + 4 + 4;
constexpr std::size_t kLoopSize = std::size_t{6} * 4;

/// Closes its file in any case: memory may run out while the chunks are listed.
class OpenRiffFile : public RiffFile {
 public:
  explicit OpenRiffFile(const char* openedName) : RiffFile(openedName) {
    if (!open()) {
      throw std::bad_alloc();  // the file has been opened before
    }
  }
  ~OpenRiffFile() { close(); }
  OpenRiffFile(const OpenRiffFile&) = delete;
  OpenRiffFile(OpenRiffFile&&) = delete;
  OpenRiffFile& operator=(const OpenRiffFile&) = delete;
  OpenRiffFile& operator=(OpenRiffFile&&) = delete;
};

void readFormat(RiffFile& riff, const ChunkInfo& chunk, WaveChunks& chunks) {
  std::array<std::uint8_t, kExtensibleSize> bytes{};
  if (chunk.chunkSize >= bytes.size() && riff.readBytes(bytes.data(), bytes.size()) &&
      std::equal(kStandardFormat.begin(), kStandardFormat.end(), bytes.data() + kSubFormat + 2)) {
    chunks.subFormat = loadLittle16(bytes.data() + kSubFormat);
  }
}

void readSampler(RiffFile& riff, const ChunkInfo& chunk, WaveChunks& chunks) {
  std::array<std::uint8_t, kSamplerSize> head{};
  if (chunk.chunkSize < head.size() || !riff.readBytes(head.data(), head.size())) {
    return;
  }
  const std::uint32_t stated = loadLittle32(head.data() + kLoopCount);
  std::uint32_t left = static_cast<std::uint32_t>(
      std::min<std::size_t>(stated, (chunk.chunkSize - kSamplerSize) / kLoopSize));
  std::array<std::uint8_t, kLoopSize> loop{};
  for (; left > 0 && riff.readBytes(loop.data(), loop.size()); --left) {
    chunks.loops.push_back({.type = loadLittle32(loop.data() + 4),
                            .start = loadLittle32(loop.data() + 8),
                            .last = loadLittle32(loop.data() + 12),
                            .count = loadLittle32(loop.data() + 20)});
  }
}

/// Lists the chunk that `riff` has just descended into.
void listChunk(const RiffFile& riff, const ChunkInfo& chunk, WaveChunks& chunks) {
  ++chunks.chunkCount;
  if (chunks.chunks.size() < WaveChunks::kMostListed) {
    const std::uint64_t left = mmioBytesLeft(riff.handle);
    chunks.chunks.push_back(
        {chunk, static_cast<std::uint32_t>(std::min<std::uint64_t>(chunk.chunkSize, left))});
  }
}

void readChunks(RiffFile& riff, const ChunkInfo& form, WaveChunks& chunks) {
  bool hasFormat = false;
  ChunkInfo chunk;
  while (riff.descendNext(chunk, form)) {
    listChunk(riff, chunk, chunks);
    if (chunk.chunkId == littleFourCc("fmt ") && !hasFormat) {
      hasFormat = true;
      readFormat(riff, chunk, chunks);
    } else if (chunk.chunkId == littleFourCc("data")) {
      ++chunks.dataCount;
      chunks.hasDataBeforeFormat = chunks.hasDataBeforeFormat || !hasFormat;
    } else if (chunk.chunkId == littleFourCc("smpl")) {
      readSampler(riff, chunk, chunks);
    }
    riff.ascend(chunk);
  }
}

}  // namespace

WaveChunks readWaveChunks(const char* openedName) {
  WaveChunks chunks;
  OpenRiffFile riff(openedName);
  ChunkInfo form;
  if (riff.descendRiff("WAVE", form)) {
    readChunks(riff, form, chunks);
  }
  return chunks;
}

}  // namespace tavrel::kit
