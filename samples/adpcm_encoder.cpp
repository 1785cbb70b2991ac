#include "samples/adpcm_encoder.h"

#include <algorithm>
#include <utility>

namespace tavrel {

AdpcmEncoder::AdpcmEncoder() {
  std::transform(kAdpcmStepFactors.begin(), kAdpcmStepFactors.end(), stepFactors.begin(),
                 [](std::int32_t factor) { return factor / 256.0; });
}

bool AdpcmEncoder::encode(const std::int16_t* samples, std::uint32_t byteLength) {
  const std::uint32_t codeBytes = adpcmCodeBytes(byteLength);
  const std::uint32_t streamSize = adpcmStreamSize(byteLength);
  ByteBlock stream = newBytes(streamSize);
  if (!stream) {
    return false;
  }
  AdpcmState state{predictor, step};
  encodeAdpcm(state, reinterpret_cast<const std::uint8_t*>(samples), codeBytes, stream.get());
  std::fill(stream.get() + codeBytes, stream.get() + streamSize, kAdpcmFill);

  predictor = state.predictor;
  step = state.step;
  outputSize = streamSize;
  output = std::move(stream);
  return true;
}

}  // namespace tavrel
