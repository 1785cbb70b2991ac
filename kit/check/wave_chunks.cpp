#include "kit/check/wave_chunks.h"

#include <algorithm>
#include <array>

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

// A `smpl` chunk has 7 other numbers before the number of its loops, and one after it.
constexpr std::size_t kLoopCount = std::size_t{7} * 4;
constexpr std::size_t kSamplerSize = kLoopCount + 4 + 4;
constexpr std::size_t kLoopSize = std::size_t{6} * 4;

void readFormat(RiffFile& riff, const ChunkInfo& chunk, WaveChunks& chunks) {
  std::array<std::uint8_t, kExtensibleSize> bytes{};
  if (chunk.chunkSize >= bytes.size() && riff.readBytes(bytes.data(), bytes.size()) &&
      std::equal(kStandardFormat.begin(), kStandardFormat.end(), bytes.data() + kSubFormat + 2)) {
    chunks.subFormat = loadLittle16(bytes.data() + kSubFormat);
  }
}

void readSampler(RiffFile& riff, const ChunkInfo& chunk, WaveChunks& chunks) {
  std::array<std::uint8_t, kSamplerSize + kLoopSize> bytes{};
  if (chunk.chunkSize >= bytes.size() && riff.readBytes(bytes.data(), bytes.size())) {
    chunks.hasLoop = chunks.hasLoop || loadLittle32(bytes.data() + kLoopCount) > 0;
  }
}

void readChunks(RiffFile& riff, const ChunkInfo& form, WaveChunks& chunks) {
  bool hasFormat = false;
  ChunkInfo chunk;
  while (riff.descendNext(chunk, form)) {
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
  RiffFile riff(openedName);
  if (riff.open()) {
    ChunkInfo form;
    if (riff.descendRiff("WAVE", form)) {
      readChunks(riff, form, chunks);
    }
    riff.close();
  }
  return chunks;
}

}  // namespace tavrel::kit
