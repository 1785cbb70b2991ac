// Reference encoder: the ADPCM algorithm step by step, without regard to speed, in doubles and with
// a loop over the thresholds. Tests compare the encoder's bytes with it, benchmarks its speed.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace tavrel::test {

struct PlainAdpcm {
  std::vector<std::uint8_t> codes;  ///< without the fill after the last code
  int predictor = 0;
  int step = 127;
};

/// Encodes an even number of samples.
inline PlainAdpcm encodePlainly(const std::vector<std::int16_t>& samples) {
  constexpr std::array<double, 8> factors = {0.8984375,  0.8984375,  0.8984375, 0.8984375,
                                             1.19921875, 1.59765625, 2.0,       2.3984375};
  PlainAdpcm result{std::vector<std::uint8_t>(samples.size() / 2)};
  auto& [codes, predictor, step] = result;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    int difference = samples[i] - predictor;
    const bool isBelow = difference < 0;
    if (isBelow) {
      difference = -difference;
    }
    const int quarter = step / 4;
    int magnitude = 0;
    for (int threshold = quarter; difference >= threshold && magnitude < 7; threshold += quarter) {
      ++magnitude;
    }
    const int bit2 = magnitude >> 2;
    const int bit1 = (magnitude >> 1) & 1;
    const int bit0 = magnitude & 1;
    int delta = static_cast<int>(step * (bit2 * 1.0 + bit1 * 0.5 + bit0 * 0.25 + 0.125));
    delta = std::min(delta, 32767);
    predictor = std::clamp(isBelow ? predictor - delta : predictor + delta, -32768, 32767);
    step = static_cast<int>(step * factors[static_cast<std::size_t>(magnitude)]);
    step = std::clamp(step, 127, 24576);
    const int code = (isBelow ? 8 : 0) + magnitude;
    std::uint8_t& byte = codes[i / 2];
    byte = static_cast<std::uint8_t>(i % 2 == 0 ? code : byte | code << 4);
  }
  return result;
}

}  // namespace tavrel::test
