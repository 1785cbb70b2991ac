// AdpcmEncoder compared with the plain form of its algorithm. The result is the throughput of
// `encoder` divided by that of `plain`. Both must produce the same bytes.
#include <benchmark/benchmark.h>

#include <algorithm>

#include "bench/sounds.h"
#include "samples/adpcm_encoder.h"
#include "tests/support/plain_adpcm.h"

namespace tavrel::bench {

namespace {

constexpr std::size_t kSampleCount = std::size_t{1} << 20;

void reportThroughput(benchmark::State& state) {
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kSampleCount));
}

void plain(benchmark::State& state, const Samples& samples) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(test::encodePlainly(samples));
  }
  reportThroughput(state);
}

void encoder(benchmark::State& state, const Samples& samples) {
  const auto byteLength = static_cast<std::uint32_t>(samples.size() * sizeof(samples[0]));
  AdpcmEncoder checked;
  checked.encode(samples.data(), byteLength);
  const auto expected = test::encodePlainly(samples).codes;
  if (!std::equal(expected.begin(), expected.end(), checked.output.get(),
                  checked.output.get() + checked.outputSize)) {
    state.SkipWithError("the bytes differ from the plain form");
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
