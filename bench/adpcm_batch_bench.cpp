// AdpcmBatch compared with the plain form of its algorithm, over many sounds of unequal lengths.
// The number to watch is the throughput of `batch` over that of `plain`. Both must return the same
// bytes.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "bench/sounds.h"
#include "samples/adpcm_batch.h"
#include "tests/support/plain_adpcm.h"

namespace tavrel::bench {

namespace {

using Sounds = std::vector<Samples>;
using Streams = std::vector<std::vector<std::uint8_t>>;

constexpr std::size_t kSounds = 200;
constexpr std::size_t kShortest = 20000;

/// Cuts sounds of 20,000 to 25,000 samples out of a long one.
Sounds cut(const Samples& samples) {
  Sounds sounds;
  auto begin = samples.begin();
  for (std::size_t i = 0; i < kSounds; ++i) {
    const auto end = begin + static_cast<std::ptrdiff_t>(kShortest + i * 2654 % 5000 / 8 * 8);
    sounds.emplace_back(begin, end);
    begin = end;
  }
  return sounds;
}

constexpr std::size_t kSamples = kSounds * (kShortest + 5000);

void reportThroughput(benchmark::State& state, const Sounds& sounds) {
  std::size_t count = 0;
  for (const Samples& samples : sounds) {
    count += samples.size();
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(count));
}

Streams plainStreams(const Sounds& sounds) {
  Streams streams;
  for (const Samples& samples : sounds) {
    streams.push_back(test::encodePlainly(samples).codes);
  }
  return streams;
}

void plain(benchmark::State& state, const Sounds& sounds) {
  for (auto _ : state) {
    benchmark::DoNotOptimize(plainStreams(sounds));
  }
  reportThroughput(state, sounds);
}

std::vector<ByteBlock> copyToBlocks(const Sounds& sounds) {
  std::vector<ByteBlock> blocks;
  for (const Samples& samples : sounds) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(samples.data());
    blocks.push_back(newBytes(2 * samples.size()));
    std::copy_n(bytes, 2 * samples.size(), blocks.back().get());
  }
  return blocks;
}

void encodeAll(std::vector<ByteBlock> blocks, const Sounds& sounds, Streams& streams) {
  AdpcmBatch batch;
  for (std::size_t i = 0; i < sounds.size(); ++i) {
    batch.add(std::move(blocks[i]), static_cast<std::uint32_t>(2 * sounds[i].size()),
              streams[i].data());
  }
  batch.finish();
}

void batch(benchmark::State& state, const Sounds& sounds) {
  const Streams expected = plainStreams(sounds);
  Streams streams = expected;
  for (auto& stream : streams) {
    std::fill(stream.begin(), stream.end(), std::uint8_t{0});
  }
  for (auto _ : state) {
    state.PauseTiming();
    std::vector<ByteBlock> blocks = copyToBlocks(sounds);
    state.ResumeTiming();
    encodeAll(std::move(blocks), sounds, streams);
  }
  if (streams != expected) {
    state.SkipWithError("the bytes differ from those of the plain form");
  }
  reportThroughput(state, sounds);
}

BENCHMARK_CAPTURE(plain, music, cut(music(kSamples)));
BENCHMARK_CAPTURE(batch, music, cut(music(kSamples)));
BENCHMARK_CAPTURE(plain, hum, cut(hum(kSamples)));
BENCHMARK_CAPTURE(batch, hum, cut(hum(kSamples)));
BENCHMARK_CAPTURE(plain, whiteNoise, cut(whiteNoise(kSamples, 3)));
BENCHMARK_CAPTURE(batch, whiteNoise, cut(whiteNoise(kSamples, 3)));

}  // namespace

}  // namespace tavrel::bench
