// AdpcmEncoder beside the plain form of its algorithm: doubles, and a loop that walks the
// thresholds. The throughput of `encoder` over that of `plainForm` is the number to watch, and both
// must give the same bytes.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <vector>

#include "bench/sounds.h"
#include "samples/adpcm_encoder.h"

namespace tavrel::bench {

namespace {

constexpr std::size_t kSampleCount = std::size_t{1} << 20;

/// The algorithm written down step by step, with no thought for speed.
std::vector<std::uint8_t> plainForm(const Samples& samples, const std::array<double, 8>& factors) {
  std::vector<std::uint8_t> codes(samples.size() / 2);
  int predictor = 0;
  int step = 127;
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
  return codes;
}

void reportThroughput(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kSampleCount));
}

void plain(benchmark::State& state, const Samples& samples) {
  const AdpcmEncoder encoder;
  for (auto _ : state) {
    benchmark::DoNotOptimize(plainForm(samples, encoder.stepFactors));
  }
  reportThroughput(state);
}

void encoder(benchmark::State& state, const Samples& samples) {
  const auto byteLength = static_cast<std::uint32_t>(samples.size() * sizeof(samples[0]));
  AdpcmEncoder checked;
  checked.encode(samples.data(), byteLength);
  const auto expected = plainForm(samples, checked.stepFactors);
  if (!std::equal(expected.begin(), expected.end(), checked.output.get(),
                  checked.output.get() + checked.outputSize)) {
    state.SkipWithError("the bytes differ from those of the plain form");
    return;
  }
  for (auto _ : state) {
    AdpcmEncoder fresh;
    fresh.encode(samples.data(), byteLength);
    benchmark::DoNotOptimize(fresh.output.get());
  }
  reportThroughput(state);
}

BENCHMARK_CAPTURE(plain, music, music(kSampleCount));
BENCHMARK_CAPTURE(encoder, music, music(kSampleCount));
BENCHMARK_CAPTURE(plain, hum, hum(kSampleCount));
BENCHMARK_CAPTURE(encoder, hum, hum(kSampleCount));
BENCHMARK_CAPTURE(plain, whiteNoise, whiteNoise(kSampleCount, 3));
BENCHMARK_CAPTURE(encoder, whiteNoise, whiteNoise(kSampleCount, 3));
BENCHMARK_CAPTURE(plain, tone, tone(kSampleCount));
BENCHMARK_CAPTURE(encoder, tone, tone(kSampleCount));

}  // namespace

}  // namespace tavrel::bench
