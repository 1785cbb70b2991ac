// The ADPCM algorithm written down step by step, with no thought for speed: doubles, and a loop
// that walks the thresholds. The encoder is measured beside it, and must give the same bytes.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <vector>

namespace tavrel::bench {

struct PlainAdpcm {
  std::vector<std::uint8_t> codes;  ///< without the fill behind the last one
  int predictor = 0;
  int step = 127;
};

/// Encodes an even number of samples. `factors` change the step, one for each magnitude.
inline PlainAdpcm encodePlainly(const std::vector<std::int16_t>& samples,
                                const std::array<double, 8>& factors) {
  PlainAdpcm result{std::vector<std::uint8_t>(samples.size() / 2)};
  auto& [codes, predictor, step] = result;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    int difference = samples[i] - predictor;
    const bool below = difference < 0;
    if (below) {
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
    predictor = std::clamp(below ? predictor - delta : predictor + delta, -32768, 32767);
    step = static_cast<int>(step * factors[static_cast<std::size_t>(magnitude)]);
    step = std::clamp(step, 127, 24576);
    const int code = (below ? 8 : 0) + magnitude;
    std::uint8_t& byte = codes[i / 2];
    byte = static_cast<std::uint8_t>(i % 2 == 0 ? code : byte | code << 4);
  }
  return result;
}

}  // namespace tavrel::bench
