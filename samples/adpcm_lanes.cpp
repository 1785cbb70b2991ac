#include "samples/adpcm_lanes.h"

#include <algorithm>

#include "foundation/byte_order.h"

namespace tavrel {

namespace {

// One number from each of eight lanes. GCC and Clang compile it for every target, to narrower
// operations where there are no vectors.
using Vector [[gnu::vector_size(16)]] = std::uint16_t;

constexpr std::size_t kVectorLanes = sizeof(Vector) / sizeof(std::uint16_t);
constexpr std::size_t kSamplesAtOnce = 2 * kAdpcmBytesAtOnce;

/// One number from each lane.
using Row = std::array<Vector, kAdpcmLanes / kVectorLanes>;

/// Added to samples and predictors so that all arithmetic is unsigned.
constexpr std::uint32_t kRaise = 32768;

constexpr Vector kNone{};
constexpr Vector kAll = ~kNone;
constexpr Vector kLargestDelta = kNone + 32767;
constexpr Vector kSmallestStep = kNone + AdpcmState::kSmallestStep;
constexpr Vector kLargestStep = kNone + AdpcmState::kLargestStep;

struct States {
  Row predictors;
  Row steps;
};

void set(Row& row, std::size_t lane, std::uint32_t number) {
  row[lane / kVectorLanes][lane % kVectorLanes] = static_cast<std::uint16_t>(number);
}

std::uint16_t get(const Row& row, std::size_t lane) {
  return row[lane / kVectorLanes][lane % kVectorLanes];
}

/// Computes the codes of eight samples and updates the states. Takes the steps of the scalar
/// encoder, arranged so that no intermediate result exceeds 16 bits.
void encodeSamples(Vector& predictor, Vector& step, const Vector& samples, Vector& codes) {
  const Vector mirror = samples < predictor ? kAll : kNone;
  const Vector start = predictor ^ mirror;

  // A binary search replaces the seven comparisons. Each mask is all ones where its bit of the
  // magnitude is set.
  const Vector quarter = step >> 2;
  Vector distance = (samples ^ mirror) - start;
  const Vector has4 = distance >= 4 * quarter ? kAll : kNone;
  distance -= 4 * quarter & has4;
  const Vector has2 = distance >= 2 * quarter ? kAll : kNone;
  distance -= 2 * quarter & has2;
  const Vector has1 = distance >= quarter ? kAll : kNone;
  const Vector magnitude = (has4 & 4) | (has2 & 2) | (has1 & 1);
  codes = (mirror & 8) | magnitude;

  // step * odd / 8. The low bits of the step are multiplied separately.
  const Vector odd = 2 * magnitude + 1;
  const Vector delta = (step >> 3) * odd + ((step & 7) * odd >> 3);
  const Vector room = ~start;
  const Vector bound = room < kLargestDelta ? room : kLargestDelta;
  predictor = (start + (delta < bound ? delta : bound)) ^ mirror;

  // The step times 230/256 for magnitudes below 4; above, times 1 + 51/256, 1 + 153/256, 2 and
  // 2 + 102/256. `fraction` is the numerator.
  const Vector fraction = 230 + (has4 & ((has1 & 102) - (has2 & 51) - (230 - 51)));
  const Vector scaled = (step & has4) + (step & has4 & has2) + (step >> 8) * fraction +
                        ((step & 255) * fraction >> 8);
  const Vector raised = scaled > kSmallestStep ? scaled : kSmallestStep;
  step = raised < kLargestStep ? raised : kLargestStep;
}

void loadStates(const AdpcmLanes& lanes, States& states) {
  for (std::size_t i = 0; i < lanes.size(); ++i) {
    set(states.predictors, i, static_cast<std::uint32_t>(lanes[i].state.predictor) + kRaise);
    set(states.steps, i, static_cast<std::uint32_t>(lanes[i].state.step));
  }
}

/// Encodes `kSamplesAtOnce` samples of each lane, `bytesDone` bytes of codes after its next one.
void encodeBytes(States& states, const AdpcmLanes& lanes, std::size_t bytesDone) {
  std::array<Row, kSamplesAtOnce> samples{};
  for (std::size_t i = 0; i < lanes.size(); ++i) {
    const std::uint8_t* next = lanes[i].samples + 4 * bytesDone;
    for (std::size_t j = 0; j < samples.size(); ++j) {
      set(samples[j], i, loadLittle16(next + 2 * j) + kRaise);
    }
  }
  Row words{};
  for (std::size_t j = 0; j < samples.size(); ++j) {
    for (std::size_t i = 0; i < words.size(); ++i) {
      Vector codes;
      encodeSamples(states.predictors[i], states.steps[i], samples[j][i], codes);
      words[i] |= codes << static_cast<std::uint16_t>(4 * j);
    }
  }
  for (std::size_t i = 0; i < lanes.size(); ++i) {
    storeLittle16(lanes[i].codes + bytesDone, get(words, i));
  }
}

void advance(AdpcmLane& lane, std::size_t bytes) {
  lane.samples += 4 * bytes;
  lane.codes += bytes;
  lane.codeBytes -= bytes;
}

}  // namespace

void encodeLanes(AdpcmLanes& lanes) {
  States states{};
  loadStates(lanes, states);
  const auto hasLess = [](const AdpcmLane& a, const AdpcmLane& b) {
    return a.codeBytes < b.codeBytes;
  };
  const std::size_t bytes = std::min_element(lanes.begin(), lanes.end(), hasLess)->codeBytes /
                            kAdpcmBytesAtOnce * kAdpcmBytesAtOnce;
  for (std::size_t done = 0; done < bytes; done += kAdpcmBytesAtOnce) {
    encodeBytes(states, lanes, done);
  }
  for (std::size_t i = 0; i < lanes.size(); ++i) {
    lanes[i].state = {static_cast<std::int32_t>(get(states.predictors, i) - kRaise),
                      get(states.steps, i)};
    advance(lanes[i], bytes);
  }
}

}  // namespace tavrel
