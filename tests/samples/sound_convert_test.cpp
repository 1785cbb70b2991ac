#include "samples/sound_convert.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/bytes.h"

namespace tavrel::test {

namespace {

const std::uint8_t* bytesOf(const std::string& text) {
  return reinterpret_cast<const std::uint8_t*>(text.data());
}

std::uint32_t extended(const std::string& bytes) {
  std::uint32_t value = 0;
  SoundConvert::readExtended(value, bytesOf(bytes));
  return value;
}

/// An 80-bit float: sign and exponent, the top half of the mantissa, and a lower half to ignore.
std::string float80(std::uint32_t exponent, std::uint32_t top) {
  return Bytes().be16(exponent).be32(top).be32(0xFFFFFFFF);
}

}  // namespace

TEST(SoundConvert, ReadsBigEndianWithoutSigns) {
  const std::string bytes = Bytes().be32(0xFFF080C8);
  std::uint16_t word = 0;
  SoundConvert::readWord(word, bytesOf(bytes));
  EXPECT_EQ(word, 0xFFF0);
  EXPECT_EQ(static_cast<std::int16_t>(word), -16);
  std::uint32_t value = 0;
  SoundConvert::readLong(value, bytesOf(bytes));
  EXPECT_EQ(value, 0xFFF080C8);
}

TEST(SoundConvert, ReadsExtendedFloats) {
  EXPECT_EQ(extended(float80(0x400E, 0xAC440000)), 44100U);
  EXPECT_EQ(extended(float80(0x400B, 0xFA000000)), 8000U);
  EXPECT_EQ(extended(float80(0x000E, 0xAC440000)), 44100U) << "the top byte is not looked at";
  EXPECT_EQ(extended(float80(0x401E, 0xFFFFFFFF)), 0xFFFFFFFFU) << "no shift, nothing to round";
  EXPECT_EQ(extended(float80(0x400B, 0x80040000)), 4097U) << "4096.5";
  EXPECT_EQ(extended(float80(0x3FFF, 0x80000000)), 1U) << "1.0: the shift wraps to 31";
  EXPECT_EQ(extended(float80(0x3FFE, 0x80000000)), 1U) << "0.5: the lost bit is the top one";
  EXPECT_EQ(extended(float80(0x3FFD, 0xFFFFFFFF)), 0U);
  EXPECT_EQ(extended(float80(0x401F, 0xFFFFFFFF)), 0U) << "the shift wraps to 255";
}

TEST(SoundConvert, MakesExtendedFloatsThatReadBack) {
  std::string bytes(10, 'x');
  auto* destination = reinterpret_cast<std::uint8_t*>(bytes.data());
  SoundConvert::makeExtended(destination, 44100);
  EXPECT_EQ(bytes, Bytes().be16(0x000E).be32(44100U << 16).fill(4).str());
  for (const std::uint32_t value : {2U, 3U, 4U, 8000U, 65535U, 65536U, 0x80000001U, 0xFFFFFFFFU}) {
    SoundConvert::makeExtended(destination, value);
    EXPECT_EQ(extended(bytes), value);
  }
  SoundConvert::makeExtended(destination, 0);
  EXPECT_EQ(bytes, std::string(10, '\0'));
  SoundConvert::makeExtended(destination, 1);
  EXPECT_EQ(bytes, Bytes().be16(0).be32(0x80000000).fill(4).str());
}

TEST(SoundConvert, SwapsWholePairsOnly) {
  const std::string source = "abcde";
  std::string destination = "-----";
  auto* bytes = reinterpret_cast<std::uint8_t*>(destination.data());
  EXPECT_EQ(SoundConvert::swapBytes(bytesOf(source), bytes, 1), bytes);
  EXPECT_EQ(destination, "-----");
  EXPECT_EQ(SoundConvert::swapBytes(bytesOf(source), bytes, 5), bytes);
  EXPECT_EQ(destination, "badc-");
  EXPECT_EQ(SoundConvert::swapBytes(bytes, bytes, 4), bytes);
  EXPECT_EQ(destination, "abcd-");
  const std::unique_ptr<std::uint8_t[]> made(SoundConvert::swapBytes(bytesOf(source), nullptr, 4));
  EXPECT_EQ(std::string(made.get(), made.get() + 4), "badc");
}

TEST(SoundConvert, FlipsTheSignBitOnly) {
  for (const auto& [from, to] : {std::pair{0x00, 0x80}, {0xFF, 0x7F}, {0x80, 0x00}, {0x12, 0x92}}) {
    EXPECT_EQ(SoundConvert::flipSign(static_cast<std::uint8_t>(from)), to);
  }
}

TEST(SoundConvert, ConvertsPitchAndTime) {
  EXPECT_EQ(SoundConvert::centsToSemitones(-150), -1);
  EXPECT_EQ(SoundConvert::centsToSemitones(199), 1);
  EXPECT_EQ(SoundConvert::pitchToHertz(6900 * 65536), 440.0);
  EXPECT_EQ(SoundConvert::pitchToHertz(8100 * 65536), 880.0);
  EXPECT_DOUBLE_EQ(SoundConvert::fixedTenthsToDouble(655360), 1.0);
  EXPECT_EQ(SoundConvert::timeToMilliseconds(0), 1000.0);
  EXPECT_EQ(SoundConvert::timeToMilliseconds(0x8000000), 0.0);
  EXPECT_DOUBLE_EQ(SoundConvert::timeToMilliseconds(1200 * 65536), 2000.0);
  EXPECT_GT(SoundConvert::timeToMilliseconds(INT32_MIN), 0.0) << "no time is another value";
}

TEST(SoundConvert, CountsSamples) {
  for (const auto& [bits, count] :
       {std::pair{4, 500U}, {8, 1001U}, {16, 500U}, {12, 0U}, {0, 0U}}) {
    EXPECT_EQ(SoundConvert::sampleCount(1001, static_cast<std::uint16_t>(bits)), count) << bits;
  }
}

TEST(SoundConvert, ScalesGainsAndPercents) {
  using Pairs = std::initializer_list<std::pair<int, int>>;
  for (const auto& [gain, byte] : Pairs{{1, 0}, {0, 0}, {-1, 0xFE}, {-96, 1}, {-32768, 0}}) {
    EXPECT_EQ(SoundConvert::gainToByte(static_cast<std::int16_t>(gain)), byte) << gain;
  }
  for (const auto& [percent, value] : Pairs{{-50, 0}, {-49, 2}, {0, 64}, {50, 127}}) {
    EXPECT_EQ(SoundConvert::percentTo127(static_cast<std::int8_t>(percent)), value) << percent;
  }
  for (const auto& [value, scaled] : Pairs{{0, 0}, {1, 1}, {5, 2}, {127, 31}, {-5, -1}}) {
    EXPECT_EQ(SoundConvert::scale127To31(static_cast<std::int8_t>(value)), scaled) << value;
  }
}

TEST(SoundConvert, FindsThresholds) {
  const std::pair<double, int> rows[] = {{47, 31},    {46.9, 0},  {38, 0},    {31, 0},
                                         {30.9, 1},   {27, 1},    {0.35, 27}, {0, 28},
                                         {0.349, 28}, {-0.1, 31}, {1e9, 31}};
  for (const auto& [value, index] : rows) {
    EXPECT_EQ(SoundConvert::descendingThresholdIndex(value), index) << value;
  }
}

}  // namespace tavrel::test
