// Compresses signed 16-bit samples into a stream of 4-bit codes, one code per sample.
// Owns the stream it makes. It fails only when there is no memory for the stream; every sample
// value is legal. An object serves one `encode`.
//
// The stream has no header; encoder and decoder both start from predictor 0 and step 127.
//
// | bits of byte k | content                                                        |
// |----------------|----------------------------------------------------------------|
// | 0 to 3         | code 2k: the earlier sample                                    |
// | 4 to 7         | code 2k + 1                                                    |
//
// | bits of a code | content                                                        |
// |----------------|----------------------------------------------------------------|
// | 0 to 2         | magnitude: whole quarters of the step in the difference, 7 at most |
// | 3              | sign: 1 if the sample lies below the prediction                |
//
// The number of codes is even. Behind the last code, bytes of 128 fill the stream up to a multiple
// of four bytes.
#pragma once

#include <array>
#include <cstdint>

#include "foundation/byte_block.h"
#include "samples/adpcm_stream.h"

namespace tavrel {

class AdpcmEncoder {
 public:
  AdpcmEncoder();

  /// Encodes the samples that `byteLength` bytes hold, an even number of them: what lies behind the
  /// last whole pair is left out. False: no memory, and nothing has changed.
  bool encode(const std::int16_t* samples, std::uint32_t byteLength);

  std::array<double, 8> stepFactors{};  ///< by magnitude: what the step is multiplied with
  ByteBlock output;                     ///< the stream; null until `encode` has made it
  std::uint32_t outputSize = 0;         ///< its size in bytes, the fill included
  std::int32_t predictor = 0;           ///< the value that a decoder holds after the last code
  std::int32_t step = AdpcmState::kSmallestStep;  ///< the quantiser step for the next sample
};

}  // namespace tavrel
