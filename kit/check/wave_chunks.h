// A second look at a WAV file that WaveFile has judged: what it holds beside the format and the
// samples that the tool reads.
#pragma once

#include <cstdint>
#include <optional>

namespace tavrel::kit {

struct WaveChunks {
  std::uint32_t dataCount = 0;       ///< of `data` chunks
  bool hasDataBeforeFormat = false;  ///< a `data` chunk before the first `fmt ` chunk
  bool hasLoop = false;              ///< a `smpl` chunk with a loop
  /// The format tag in the sub-format of an extensible `fmt ` chunk, if that is a standard one.
  std::optional<std::uint16_t> subFormat{};
};

/// Reads the headers of all chunks. `openedName` is the name under which the tool opens the file.
WaveChunks readWaveChunks(const char* openedName);

}  // namespace tavrel::kit
