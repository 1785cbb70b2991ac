#include "samples/adpcm_encoder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "tests/support/bytes.h"

namespace tavrel::test {

namespace {

using Samples = std::vector<std::int16_t>;

std::string encoded(AdpcmEncoder& encoder, const Samples& samples, std::uint32_t byteLength) {
  EXPECT_TRUE(encoder.encode(samples.data(), byteLength));
  return {reinterpret_cast<const char*>(encoder.output.get()), encoder.outputSize};
}

std::string encoded(const Samples& samples) {
  AdpcmEncoder encoder;
  return encoded(encoder, samples, static_cast<std::uint32_t>(samples.size() * 2));
}

/// The algorithm in doubles, threshold by threshold.
struct PlainForm {
  int predictor = 0;
  int step = 127;

  unsigned code(int sample, const AdpcmEncoder& encoder) {
    const int difference = sample - predictor;
    const int distance = std::abs(difference);
    const int quarter = step / 4;
    unsigned magnitude = 0;
    for (int threshold = quarter; distance >= threshold && magnitude < 7; threshold += quarter) {
      ++magnitude;
    }
    const double weights =
        (magnitude >> 2) * 1.0 + (magnitude >> 1 & 1) * 0.5 + (magnitude & 1) * 0.25;
    const int delta = std::min(static_cast<int>(step * (weights + 0.125)), 32767);
    predictor = std::clamp(difference < 0 ? predictor - delta : predictor + delta, -32768, 32767);
    step = std::clamp(static_cast<int>(step * encoder.stepFactors[magnitude]), 127, 24576);
    return (difference < 0 ? 8U : 0U) + magnitude;
  }
};

}  // namespace

TEST(AdpcmEncoder, StartsReadyAndEmpty) {
  const AdpcmEncoder encoder;
  EXPECT_EQ(encoder.output, nullptr);
  EXPECT_EQ(encoder.outputSize, 0U);
  EXPECT_EQ(encoder.predictor, 0);
  EXPECT_EQ(encoder.step, 127);
  const std::array<double, 8> factors = {0.8984375,  0.8984375,  0.8984375, 0.8984375,
                                         1.19921875, 1.59765625, 2.0,       2.3984375};
  EXPECT_EQ(encoder.stepFactors, factors);
}

TEST(AdpcmEncoder, StateFollowsTheCodes) {
  const Samples samples = {1000, 900, -500, 0, 32767, 32767, -32768, -32768};
  const std::string stream = Bytes().u8(0x77).u8(0x1F).u8(0x77).u8(0xCF);
  const struct {
    std::uint32_t pairs;
    int predictor;
    int step;
  } states[] = {{1, 808, 729}, {2, 97, 1570}, {3, 10099, 9030}, {4, -31196, 24576}};
  for (const auto& after : states) {
    AdpcmEncoder encoder;
    EXPECT_EQ(encoded(encoder, samples, after.pairs * 4).substr(0, after.pairs),
              stream.substr(0, after.pairs));
    EXPECT_EQ(encoder.predictor, after.predictor) << after.pairs;
    EXPECT_EQ(encoder.step, after.step) << after.pairs;
  }
}

TEST(AdpcmEncoder, SizesRoundAndFill) {
  const Samples zeros(18);
  const std::pair<std::uint32_t, std::uint32_t> sizes[] = {{0, 0}, {1, 0}, {3, 0},  {4, 4},
                                                           {6, 4}, {7, 4}, {16, 4}, {36, 12}};
  for (const auto& [byteLength, outputSize] : sizes) {
    AdpcmEncoder encoder;
    // Silence gives the codes 0 and 8 in turn: bytes that look like the fill.
    EXPECT_EQ(encoded(encoder, zeros, byteLength), std::string(outputSize, '\x80')) << byteLength;
  }
  EXPECT_EQ(encoded({0, 0, 999}), encoded({0, 0})) << "an odd sample counts";
}

TEST(AdpcmEncoder, ThresholdBelongsToTheUpperMagnitude) {
  // The quarter is 31 at first; code 0 adds 127 / 8, code 1 adds 3 * 127 / 8.
  EXPECT_EQ(encoded({30, 15})[0], 0x00);
  EXPECT_EQ(encoded({31, 47})[0], 0x01);
}

TEST(AdpcmEncoder, GivesTheBytesOfThePlainForm) {
  std::mt19937 random(7);
  for (const int loudness : {60, 2000, 32767}) {
    Samples samples(20000);
    std::uniform_int_distribution<int> noise(-loudness, loudness);
    std::generate(samples.begin(), samples.end(),
                  [&] { return static_cast<std::int16_t>(noise(random)); });
    std::fill_n(samples.begin() + 1000, 200, std::int16_t{-32768});
    std::fill_n(samples.begin() + 1200, 200, std::int16_t{32767});

    AdpcmEncoder encoder;
    PlainForm plain;
    Bytes expected;
    for (std::size_t i = 0; i < samples.size(); i += 2) {
      const unsigned earlier = plain.code(samples[i], encoder);
      expected.u8(earlier | plain.code(samples[i + 1], encoder) << 4);
    }
    EXPECT_TRUE(encoded(encoder, samples, 40000) == expected.str()) << loudness;
    EXPECT_EQ(encoder.predictor, plain.predictor);
    EXPECT_EQ(encoder.step, plain.step);
  }
}

}  // namespace tavrel::test
