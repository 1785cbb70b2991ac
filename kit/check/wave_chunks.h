// A second look at a WAV file that WaveFile has judged: what it holds beside the format and the
// samples that the tool reads.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "platform/mmio.h"

namespace tavrel::kit {

/// A chunk of the form.
struct WaveChunk {
  ChunkInfo info{};
  std::uint32_t bytesHeld = 0;  ///< of its content, in the file; at most the size that it states
};

/// A loop of a `smpl` chunk.
struct SamplerLoop {
  std::uint32_t type = 0;   ///< 0 forward, 1 forwards and backwards, 2 backward
  std::uint32_t start = 0;  ///< in sample frames
  std::uint32_t last = 0;   ///< the last frame that it plays
  std::uint32_t count = 0;  ///< how many times it plays; 0 means without end
};

struct WaveChunks {
  static constexpr std::size_t kMostListed = 1000;

  std::vector<WaveChunk> chunks{};   ///< the first ones of the first form, in file order
  std::uint64_t chunkCount = 0;      ///< of all chunks
  std::vector<SamplerLoop> loops{};  ///< of all `smpl` chunks
  std::uint32_t dataCount = 0;       ///< of `data` chunks
  bool hasDataBeforeFormat = false;  ///< a `data` chunk before the first `fmt ` chunk
  /// The format tag in the sub-format of an extensible `fmt ` chunk, if that is a standard one.
  std::optional<std::uint16_t> subFormat{};
};

/// Reads the headers of all chunks. `openedName` is the name under which the tool opens the file.
WaveChunks readWaveChunks(const char* openedName);

}  // namespace tavrel::kit
