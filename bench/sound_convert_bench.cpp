// The two conversions that visit every byte of a sound, swapped pairs and flipped signs, compared
// with a plain copy of the same bytes.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <vector>

#include "samples/sound_convert.h"

namespace tavrel::bench {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr std::size_t kByteCount = std::size_t{1} << 20;

/// Times `pass` over one block of sound.
void measure(benchmark::State& state, void (*pass)(Bytes& bytes)) {
  Bytes bytes(kByteCount, 1);
  for (auto _ : state) {
    pass(bytes);
    benchmark::ClobberMemory();
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(kByteCount));
}

void swapInPlace(Bytes& bytes) {
  SoundConvert::swapBytes(bytes.data(), bytes.data(), static_cast<std::uint32_t>(bytes.size()));
}

void flipInPlace(Bytes& bytes) {
  std::transform(bytes.begin(), bytes.end(), bytes.begin(), SoundConvert::flipSign);
}

void copy(Bytes& bytes) {
  static Bytes target(kByteCount);
  std::memcpy(target.data(), bytes.data(), bytes.size());
}

BENCHMARK_CAPTURE(measure, copy, copy);
BENCHMARK_CAPTURE(measure, swapBytes, swapInPlace);
BENCHMARK_CAPTURE(measure, flipSign, flipInPlace);

}  // namespace

}  // namespace tavrel::bench
