// tavrel_adpcm_decode compared with the decoder that docs/adpcm.md prints, which is `plain`. Both
// must produce the same samples.
#include <benchmark/benchmark.h>
#include <tavrel/bank.h>

#include "bench/sounds.h"
#include "samples/adpcm_encoder.h"

extern "C" void decodeAdpcm(const std::uint8_t* stream, std::size_t size, std::int16_t* samples);

namespace tavrel::bench {

namespace {

constexpr std::size_t kSampleCount = std::size_t{1} << 20;

void decodeHere(const std::uint8_t* stream, std::size_t size, std::int16_t* samples) {
  tavrel_adpcm state;
  tavrel_adpcm_start(&state);
  tavrel_adpcm_decode(&state, stream, size, samples);
}

using Decode = void(const std::uint8_t* stream, std::size_t size, std::int16_t* samples);

void measure(benchmark::State& state, const Samples& sound, Decode* decode) {
  AdpcmEncoder encoder;
  encoder.encode(sound.data(), static_cast<std::uint32_t>(sound.size() * sizeof(sound[0])));
  Samples expected(2 * std::size_t{encoder.outputSize});
  Samples samples(expected.size());
  decodeAdpcm(encoder.output.get(), encoder.outputSize, expected.data());
  for (auto _ : state) {
    decode(encoder.output.get(), encoder.outputSize, samples.data());
    benchmark::ClobberMemory();
  }
  if (samples != expected) {
    state.SkipWithError("the samples differ from the printed decoder's");
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(kSampleCount));
}

void plain(benchmark::State& state, const Samples& sound) { measure(state, sound, decodeAdpcm); }
void decoder(benchmark::State& state, const Samples& sound) { measure(state, sound, decodeHere); }

BENCHMARK_CAPTURE(plain, music, music(kSampleCount));
BENCHMARK_CAPTURE(decoder, music, music(kSampleCount));
BENCHMARK_CAPTURE(plain, hum, hum(kSampleCount));
BENCHMARK_CAPTURE(decoder, hum, hum(kSampleCount));
BENCHMARK_CAPTURE(plain, whiteNoise, whiteNoise(kSampleCount, 3));
BENCHMARK_CAPTURE(decoder, whiteNoise, whiteNoise(kSampleCount, 3));
BENCHMARK_CAPTURE(plain, tone, tone(kSampleCount));
BENCHMARK_CAPTURE(decoder, tone, tone(kSampleCount));

}  // namespace

}  // namespace tavrel::bench
