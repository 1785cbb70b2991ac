// Compresses signed 16-bit samples into a stream of 4-bit codes, one code per sample.
// Owns the stream. Every sample value is legal, so encoding fails only if memory runs out. The tool
// encodes its sounds with AdpcmBatch; this class is for programs that encode a single one.
//
// The stream has no header. Encoder and decoder both start from predictor 0 and step 127.
//
// | bits of byte k | content                                                             |
// |----------------|---------------------------------------------------------------------|
// | 0 to 3         | code 2k, the earlier sample                                         |
// | 4 to 7         | code 2k + 1                                                         |
//
// | bits of a code | content                                                             |
// |----------------|---------------------------------------------------------------------|
// | 0 to 2         | magnitude: whole quarters of the step in the difference, at most 7  |
// | 3              | sign: 1 if the sample is below the prediction                       |
//
// The number of codes is even. After the last code, bytes of 128 fill the stream to a multiple of
// four bytes.
#pragma once

#include <array>
#include <cstdint>

#include "foundation/byte_block.h"
#include "samples/adpcm_stream.h"

namespace tavrel {

class AdpcmEncoder {
 public:
  AdpcmEncoder();

  /// Encodes the samples in the first `byteLength` bytes at `samples`, little-endian words on every
  /// host. Bytes after the last whole pair of samples are ignored. An object serves one `encode`.
  /// Returns false if memory runs out; the object is then unchanged.
  bool encode(const std::int16_t* samples, std::uint32_t byteLength);

  std::array<double, 8> stepFactors{};            ///< factor applied to the step, by magnitude
  ByteBlock output;                               ///< the stream; null until `encode` succeeds
  std::uint32_t outputSize = 0;                   ///< size of the stream in bytes, fill included
  std::int32_t predictor = 0;                     ///< value a decoder holds after the last code
  std::int32_t step = AdpcmState::kSmallestStep;  ///< quantiser step for the next sample
};

}  // namespace tavrel
