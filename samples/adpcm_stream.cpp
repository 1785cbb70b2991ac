#include "samples/adpcm_stream.h"

#include <algorithm>
#include <cstdlib>

#include "foundation/byte_order.h"

namespace tavrel {

namespace {

constexpr std::int32_t kLargestSample = 32767;

/// Returns how many of the thresholds at 1 to 7 quarters `distance` reaches. All seven comparisons
/// are made: a loop that stops at the right one mispredicts its last branch for most samples.
std::uint32_t magnitudeOf(std::uint32_t distance, std::uint32_t quarter) {
  const auto reaches = [=](std::uint32_t quarters) {
    return static_cast<std::uint32_t>(distance >= quarters * quarter);
  };
  return (reaches(1) + reaches(2)) + (reaches(3) + reaches(4)) + (reaches(5) + reaches(6)) +
         reaches(7);
}

std::int32_t sampleAt(const std::uint8_t* bytes) {
  return static_cast<std::int16_t>(loadLittle16(bytes));
}

/// Returns the code of `sample` and updates the state.
///
/// A sample below the prediction is treated as its mirror image above it: XOR with -1 turns x into
/// -1 - x, which maps the range of samples onto itself, so one bound serves both directions.
std::uint32_t encodeSample(AdpcmState& state, std::int32_t sample) {
  const std::int32_t difference = sample - state.predictor;
  const std::int32_t mirror = difference < 0 ? -1 : 0;
  const auto distance = static_cast<std::uint32_t>(std::abs(difference));
  const std::uint32_t magnitude = magnitudeOf(distance, static_cast<std::uint32_t>(state.step) / 4);

  // Neither the delta nor the sum exceeds the largest sample.
  const std::int32_t start = state.predictor ^ mirror;
  const std::int32_t bound = std::min(start, 0) + kLargestSample;
  const std::int32_t delta = (state.step * static_cast<std::int32_t>(2 * magnitude + 1)) >> 3;
  state.predictor = std::min(start + delta, bound) ^ mirror;

  const std::int32_t scaled = (state.step * kAdpcmStepFactors[magnitude]) >> 8;
  state.step = std::clamp(scaled, AdpcmState::kSmallestStep, AdpcmState::kLargestStep);
  return (static_cast<std::uint32_t>(mirror) & 8) | magnitude;
}

}  // namespace

void encodeAdpcm(AdpcmState& state, const std::uint8_t* samples, std::size_t codeBytes,
                 std::uint8_t* codes) {
  AdpcmState current = state;  // a copy that stores through `codes` can't alias
  for (std::size_t i = 0; i < codeBytes; ++i) {
    const std::uint32_t earlier = encodeSample(current, sampleAt(samples + 4 * i));
    const std::uint32_t later = encodeSample(current, sampleAt(samples + 4 * i + 2));
    codes[i] = static_cast<std::uint8_t>(earlier | later << 4);
  }
  state = current;
}

}  // namespace tavrel
