#include "samples/sound_convert.h"

#include <gtest/gtest.h>

#include <array>

#include "tests/support/bytes.h"

namespace tavrel::test {

std::uint8_t* raw(std::string& text) { return reinterpret_cast<std::uint8_t*>(text.data()); }

TEST(SoundConvert, ReadsAndMakesBigEndianNumbersAndExtendedFloats) {
  std::string number = "\xF2\xF1\x80\x84";
  std::uint16_t word = 0;
  std::uint32_t longWord = 0;
  SoundConvert::readWord(word, raw(number));
  SoundConvert::readLong(longWord, raw(number));
  EXPECT_EQ(word, 0xF2F1);
  EXPECT_EQ(longWord, 0xF2F18084);
  const struct {
    std::uint32_t exponent, mantissaTop, expected;
  } rows[] = {{0x000B, 0xFA000000, 8000},  {0x401E, 0xFFFFFFFF, 0xFFFFFFFF},
              {0x400B, 0x80040000, 4097},  {0x3FFF, 0x80000000, 1},
              {0x400E, 0xAC440000, 44100}, {0x3FFE, 0x80000000, 1},
              {0x3FFD, 0xFFFFFFFF, 0},     {0x401F, 0xFFFFFFFF, 0}};
  for (const auto& [exponent, mantissaTop, expected] : rows) {
    std::string bytes = Bytes().be16(exponent).be32(mantissaTop).fill(4, 0xFF);
    std::uint32_t value = 7;
    SoundConvert::readExtended(value, raw(bytes));
    EXPECT_EQ(value, expected) << exponent;
  }
  for (const auto& [value, exponent, mantissaTop] : {std::array{44100U, 0x0EU, 44100U << 16U},
                                                     {1, 0, 1U << 31U},
                                                     {2, 0, 1U << 31U},
                                                     {0, 0, 0}}) {
    std::string bytes(11, 'x');
    SoundConvert::makeExtended(raw(bytes), value);
    EXPECT_EQ(bytes, Bytes().be16(exponent).be32(mantissaTop).fill(4).text("x").str()) << value;
  }
}

TEST(SoundConvert, SwapsWholePairsAndReadsNothingElse) {
  std::string text = "abcdefg";
  EXPECT_EQ(SoundConvert::swapBytes(nullptr, raw(text), 1), raw(text));
  const std::unique_ptr<std::uint8_t[]> made(SoundConvert::swapBytes(raw(text), nullptr, 4));
  EXPECT_EQ(std::string(made.get(), made.get() + 4), "badc");
  EXPECT_EQ(SoundConvert::swapBytes(made.get(), raw(text), 3), raw(text));
  EXPECT_EQ(text, "abcdefg");
  SoundConvert::swapBytes(raw(text) + 2, raw(text), 4);
  EXPECT_EQ(text, "dcfeefg") << "overlapping";
}

template <typename Result, typename Argument>
void expectRows(Result (*convert)(Argument), const std::vector<std::pair<double, double>>& rows) {
  for (const auto& [argument, result] : rows) {
    EXPECT_DOUBLE_EQ(convert(static_cast<Argument>(argument)), result) << argument;
  }
}

TEST(SoundConvert, ConvertsUnits) {
  expectRows(+[](std::uint16_t bits) { return SoundConvert::sampleCount(1003, bits); },
             {{4, 500}, {8, 1003}, {16, 501}, {12, 0}});
  expectRows(SoundConvert::centsToSemitones, {{-150, -1}, {199, 1}});
  expectRows(SoundConvert::pitchToHertz, {{6900 * 65536, 440}, {8100 * 65536, 880}});
  expectRows(SoundConvert::fixedTenthsToDouble, {{655360, 1}});
  expectRows(SoundConvert::timeToMilliseconds, {{0x8000000, 0}, {1200 * 65536, 2000}});
  expectRows(SoundConvert::gainToByte, {{1, 0}, {0, 0}, {-1, 0xFE}, {-96, 1}});
  expectRows(SoundConvert::percentTo127, {{-50, 0}, {-49, 2}, {0, 64}, {50, 127}});
  expectRows(SoundConvert::scale127To31, {{-5, -1}, {0, 0}, {1, 1}, {5, 2}, {127, 31}});
}

TEST(SoundConvert, FindsIntervalsOfFallingThresholds) {
  expectRows(SoundConvert::descendingThresholdIndex,
             {{47, 31},   {46.9, 0},  {38, 0},    {31, 0},    {27, 1},    {24, 2},    {19, 3},
              {15, 4},    {13, 5},    {12, 6},    {9.4, 7},   {7.9, 8},   {6.8, 9},   {6.0, 10},
              {4.7, 11},  {3.8, 12},  {3.4, 13},  {3.0, 14},  {2.4, 15},  {2.0, 16},  {1.8, 17},
              {1.6, 18},  {1.3, 19},  {1.1, 20},  {0.93, 21}, {0.85, 22}, {0.65, 23}, {0.53, 24},
              {0.44, 25}, {0.40, 26}, {0.35, 27}, {0, 28},    {-0.1, 31}});
}

}  // namespace tavrel::test
