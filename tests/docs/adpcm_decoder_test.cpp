// The decoder that docs/adpcm.md prints, against the encoder.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "samples/adpcm_encoder.h"

extern "C" void decodeAdpcm(const std::uint8_t* stream, std::size_t size, std::int16_t* samples);

namespace tavrel::test {
namespace {

/// Noise of every loudness, so that the step goes up and down through its whole range.
std::vector<std::int16_t> swellingNoise(std::size_t count) {
  std::mt19937 random(1);
  std::vector<std::int16_t> samples(count);
  for (std::size_t i = 0; i < count; ++i) {
    const int loudness = static_cast<int>(i % 400 * 32767 / 400);
    samples[i] =
        static_cast<std::int16_t>(std::uniform_int_distribution(-loudness, loudness)(random));
  }
  return samples;
}

// The encoder knows what a decoder holds behind its last code, so every start of the samples is
// encoded by itself.
TEST(DocumentedAdpcmDecoder, HoldsWhatTheEncoderExpectsOfItAfterEveryPairOfSamples) {
  const std::vector<std::int16_t> samples = swellingNoise(1600);
  for (std::size_t count = 2; count <= samples.size(); count += 2) {
    AdpcmEncoder encoder;
    ASSERT_TRUE(encoder.encode(samples.data(), static_cast<std::uint32_t>(2 * count)));
    std::vector<std::int16_t> decoded(std::size_t{2} * encoder.outputSize);
    decodeAdpcm(encoder.output.get(), encoder.outputSize, decoded.data());
    ASSERT_EQ(decoded[count - 1], encoder.predictor) << "after sample " << count - 1;
  }
}

}  // namespace
}  // namespace tavrel::test
