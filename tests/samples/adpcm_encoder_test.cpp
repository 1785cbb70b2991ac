#include "samples/adpcm_encoder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

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
  std::int16_t decoded[8] = {};
  const std::uint8_t stream[] = {0x77, 0x1F, 0x77, 0xCF};
  decodeAdpcm(stream, 4, decoded);
  EXPECT_EQ(decoded[7], -31196) << "by the documented decoder";
  EXPECT_EQ(AdpcmEncoder().stepFactors[5], 1.59765625);
}

}  // namespace tavrel::test
