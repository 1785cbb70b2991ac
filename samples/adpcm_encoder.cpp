#include "samples/adpcm_encoder.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace tavrel {

namespace {

constexpr std::uint8_t kFill = 128;
constexpr std::int32_t kLargestSample = 32767;

// The step factors by magnitude, in 256ths. Scaling by them in whole numbers gives what doubles
// give: the product is exact either way, and both drop the remainder.
constexpr std::array<std::int32_t, 8> kStepFactors = {230, 230, 230, 230, 307, 409, 512, 614};

/// What encoder and decoder both know between two samples.
struct State {
  std::int32_t predictor;
  std::int32_t step;
};

/// How many of the thresholds at 1 to 7 quarters `distance` reaches. All seven comparisons are made
/// at once: a walk that stops at the right one mispredicts its last branch for most samples.
std::uint32_t magnitudeOf(std::uint32_t distance, std::uint32_t quarter) {
  const auto reaches = [=](std::uint32_t quarters) {
    return static_cast<std::uint32_t>(distance >= quarters * quarter);
  };
  return (reaches(1) + reaches(2)) + (reaches(3) + reaches(4)) + (reaches(5) + reaches(6)) +
         reaches(7);
}

/// Gives the code of `sample` and moves the state on.
///
/// A sample below the prediction is treated as its mirror image above it: XOR with -1 turns x into
/// -1 - x, which maps the range of samples onto itself, so one bound serves both directions.
std::uint32_t encodeSample(State& state, std::int32_t sample) {
  const std::int32_t difference = sample - state.predictor;
  const std::int32_t mirror = difference < 0 ? -1 : 0;
  const auto distance = static_cast<std::uint32_t>(std::abs(difference));
  const std::uint32_t magnitude = magnitudeOf(distance, static_cast<std::uint32_t>(state.step) / 4);

  // Neither the delta nor the sum exceeds the largest sample.
  const std::int32_t start = state.predictor ^ mirror;
  const std::int32_t bound = std::min(start, 0) + kLargestSample;
  const std::int32_t delta = (state.step * static_cast<std::int32_t>(2 * magnitude + 1)) >> 3;
  state.predictor = std::min(start + delta, bound) ^ mirror;

  const std::int32_t scaled = (state.step * kStepFactors[magnitude]) >> 8;
  state.step = std::clamp(scaled, AdpcmEncoder::kSmallestStep, AdpcmEncoder::kLargestStep);
  return (static_cast<std::uint32_t>(mirror) & 8) | magnitude;
}

}  // namespace

AdpcmEncoder::AdpcmEncoder() {
  std::transform(kStepFactors.begin(), kStepFactors.end(), stepFactors.begin(),
                 [](std::int32_t factor) { return factor / 256.0; });
}

bool AdpcmEncoder::encode(const std::int16_t* samples, std::uint32_t byteLength) {
  const std::uint32_t codeBytes = byteLength / 4;
  const auto streamSize = static_cast<std::uint32_t>(roundUp(codeBytes, 4));
  ByteBlock stream = newBytes(streamSize);
  if (!stream) {
    return false;
  }
  State state{predictor, step};
  for (std::uint32_t i = 0; i < codeBytes; ++i) {
    const std::uint32_t earlier = encodeSample(state, samples[2 * std::size_t{i}]);
    const std::uint32_t later = encodeSample(state, samples[2 * std::size_t{i} + 1]);
    stream[i] = static_cast<std::uint8_t>(earlier | later << 4);
  }
  std::fill(stream.get() + codeBytes, stream.get() + streamSize, kFill);

  predictor = state.predictor;
  step = state.step;
  outputSize = streamSize;
  output = std::move(stream);
  return true;
}

}  // namespace tavrel
