// How much of a sound its compression keeps.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "foundation/byte_block.h"

namespace tavrel::kit {

/// The samples of a file, as the tool's readers deliver them.
struct SourceSound {
  ByteBlock block{};                      ///< holds the samples
  const std::uint8_t* samples = nullptr;  ///< 16-bit samples are little-endian
  std::uint32_t size = 0;                 ///< in bytes
  std::uint16_t bits = 0;                 ///< per sample
};

/// Reads the file of a WaveFile statement, under the name that the script has for it. Throws
/// Failure if it can't be read.
SourceSound readSource(const std::string& name);

/// An error is the decoded sample less that of the source.
struct WaveQuality {
  /// Power of the source over power of the error; none for a silent source and without an error.
  std::optional<double> decibels{};
  std::int32_t worstError = 0;    ///< the first of the largest ones
  std::uint32_t worstSample = 0;  ///< its index
  std::uint32_t clipped = 0;      ///< samples decoded to a limit where the source isn't at one
};

/// Compares the ADPCM stream of `codeBytes` bytes, without the fill after them, with the
/// little-endian samples that it was made from, two for each byte.
WaveQuality compareStream(const std::uint8_t* stream, const std::uint8_t* samples,
                          std::uint32_t codeBytes);

}  // namespace tavrel::kit
