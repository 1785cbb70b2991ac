// Size and scalar encoder of the ADPCM stream, shared by AdpcmEncoder and AdpcmBatch.
// adpcm_encoder.h describes the stream.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "foundation/byte_block.h"

namespace tavrel {

/// Byte that fills a stream after its last code.
constexpr std::uint8_t kAdpcmFill = 128;

/// Step factors by magnitude, in 256ths. Integer arithmetic returns the same step as doubles do:
/// the product is exact in both, and both drop the remainder.
constexpr std::array<std::int32_t, 8> kAdpcmStepFactors = {230, 230, 230, 230, 307, 409, 512, 614};

/// State that encoder and decoder share between two samples.
struct AdpcmState {
  static constexpr std::int32_t kSmallestStep = 127;
  static constexpr std::int32_t kLargestStep = 24576;

  std::int32_t predictor = 0;  ///< value that a decoder holds after the last code
  std::int32_t step = kSmallestStep;
};

/// Returns the number of bytes that hold the codes of `byteLength` bytes of samples. Bytes after
/// the last whole pair of samples are ignored.
constexpr std::uint32_t adpcmCodeBytes(std::uint32_t byteLength) { return byteLength / 4; }

/// Returns the size of the stream for `byteLength` bytes of samples, fill included.
constexpr std::uint32_t adpcmStreamSize(std::uint32_t byteLength) {
  return static_cast<std::uint32_t>(roundUp(adpcmCodeBytes(byteLength), 4));
}

/// Encodes two little-endian samples, at any alignment, into each of `codeBytes` bytes.
void encodeAdpcm(AdpcmState& state, const std::uint8_t* samples, std::size_t codeBytes,
                 std::uint8_t* codes);

}  // namespace tavrel
