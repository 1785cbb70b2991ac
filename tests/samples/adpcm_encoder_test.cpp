#include "samples/adpcm_encoder.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/plain_adpcm.h"

extern "C" void decodeAdpcm(const std::uint8_t* stream, std::size_t size, std::int16_t* samples);

namespace tavrel::test {

/// The stream that the first bytes of `samples` are encoded to, and the state after it.
std::string encoded(const std::vector<std::int16_t>& samples, std::uint32_t byteLength) {
  AdpcmEncoder encoder;
  EXPECT_EQ(encoder.outputSize, 0);
  EXPECT_TRUE(encoder.encode(samples.data(), byteLength));
  return std::string(encoder.output.get(), encoder.output.get() + encoder.outputSize) + ' ' +
         std::to_string(encoder.predictor) + ' ' + std::to_string(encoder.step);
}

TEST(AdpcmEncoder, EncodesWholePairsOfSamples) {
  const std::vector<std::int16_t> samples = {1000, 900, -500, 0, 32767, 32767, -32768, -32768};
  EXPECT_EQ(encoded(samples, 3), " 0 127");
  EXPECT_EQ(encoded(samples, 11), "\x77\x1F\x80\x80 97 1570");
  EXPECT_EQ(encoded(samples, 16), "\x77\x1F\x77\xCF -31196 24576");
  // The seventh sample would carry the predictor out of range; the eighth starts from the bound.
  EXPECT_EQ(encoded(std::vector<std::int16_t>(8, 32767), 16).substr(4), " 32767 19463");
  EXPECT_EQ(encoded(std::vector<std::int16_t>(8, -32768), 16).substr(4), " -30060 19463");
  EXPECT_EQ(AdpcmEncoder().stepFactors[5], 1.59765625);
}

TEST(AdpcmEncoder, EncodesEveryLoudnessLikeThePlainForm) {
  std::mt19937 random(1);
  std::vector<std::int16_t> samples(80000);
  for (int i = 0; i < 80000; ++i) {
    const int loudness = i % 4000 * 32767 / 3999;
    samples[static_cast<std::size_t>(i)] =
        static_cast<std::int16_t>(std::uniform_int_distribution(-loudness - 1, loudness)(random));
  }
  const auto [codes, predictor, step] = encodePlainly(samples);
  EXPECT_TRUE(encoded(samples, 160000) == std::string(codes.begin(), codes.end()) + ' ' +
                                              std::to_string(predictor) + ' ' +
                                              std::to_string(step));
  std::vector<std::int16_t> decoded(samples.size());
  decodeAdpcm(codes.data(), codes.size(), decoded.data());
  EXPECT_EQ(decoded.back(), predictor) << "by the documented decoder";
}

}  // namespace tavrel::test
