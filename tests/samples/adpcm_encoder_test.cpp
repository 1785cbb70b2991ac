#include "samples/adpcm_encoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

extern "C" void decodeAdpcm(const std::uint8_t* stream, std::size_t size, std::int16_t* samples);

namespace tavrel::test {

/// The stream that the first bytes of `samples` give, and the state behind it.
std::string encoded(const std::vector<std::int16_t>& samples, std::uint32_t byteLength) {
  AdpcmEncoder encoder;
  EXPECT_TRUE(encoder.stepFactors[5] == 1.59765625 && encoder.encode(samples.data(), byteLength));
  return std::string(encoder.output.get(), encoder.output.get() + encoder.outputSize) + ' ' +
         std::to_string(encoder.predictor) + ' ' + std::to_string(encoder.step);
}

TEST(AdpcmEncoder, StreamAndStateFollowTheWholePairsOfSamples) {
  const std::vector<std::int16_t> samples = {1000, 900, -500, 0, 32767, 32767, -32768, -32768};
  EXPECT_EQ(encoded(samples, 3), " 0 127");
  EXPECT_EQ(encoded(samples, 11), "\x77\x1F\x80\x80 97 1570");
  EXPECT_EQ(encoded(samples, 16), "\x77\x1F\x77\xCF -31196 24576");
  // The seventh sample would carry the predictor out of range; the eighth starts from the bound.
  EXPECT_EQ(encoded(std::vector<std::int16_t>(8, 32767), 16).substr(4), " 32767 19463");
  EXPECT_EQ(encoded(std::vector<std::int16_t>(8, -32768), 16).substr(4), " -30060 19463");
}

/// The algorithm in its plain form, with doubles and a walk over the thresholds; and what a decoder
/// makes of each code.
std::string encodedPlainly(const std::vector<std::int16_t>& samples,
                           std::vector<std::int16_t>& decoded) {
  std::string stream(samples.size() / 2, '\0');
  int predictor = 0;
  int step = 127;
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const int distance = std::abs(samples[i] - predictor);
    const bool below = samples[i] < predictor;
    std::size_t magnitude = 0;
    for (int threshold = step / 4; magnitude < 7 && distance >= threshold; threshold += step / 4) {
      ++magnitude;
    }
    const int delta =
        std::min(32767, static_cast<int>(step * (static_cast<double>(magnitude) * 0.25 + 0.125)));
    predictor = std::clamp(predictor + (below ? -delta : delta), -32768, 32767);
    decoded.push_back(static_cast<std::int16_t>(predictor));
    step = std::clamp(static_cast<int>(step * AdpcmEncoder().stepFactors[magnitude]), 127, 24576);
    const std::size_t code = magnitude + (below ? 8 : 0);
    const auto before = static_cast<unsigned char>(stream[i / 2]);
    stream[i / 2] = static_cast<char>(before | code << (i % 2 * 4));
  }
  return stream + ' ' + std::to_string(predictor) + ' ' + std::to_string(step);
}

TEST(AdpcmEncoder, SoundsOfEveryLoudnessGiveTheBytesOfThePlainForm) {
  std::mt19937 random(1);
  std::vector<std::int16_t> samples(80000);
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const int loudness = static_cast<int>(i % 4000 * 32767 / 3999);
    samples[i] =
        static_cast<std::int16_t>(std::uniform_int_distribution(-loudness - 1, loudness)(random));
  }
  std::vector<std::int16_t> expected;
  std::vector<std::int16_t> decoded(samples.size());
  const std::string stream = encoded(samples, 160000);
  EXPECT_TRUE(stream == encodedPlainly(samples, expected));
  decodeAdpcm(reinterpret_cast<const std::uint8_t*>(stream.data()), samples.size() / 2,
              decoded.data());
  EXPECT_TRUE(decoded == expected) << "by the decoder that docs/adpcm.md prints";
}

}  // namespace tavrel::test
