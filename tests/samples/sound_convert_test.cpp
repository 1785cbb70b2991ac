#include "samples/sound_convert.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"

namespace tavrel::test {

std::uint8_t* raw(std::string& text) { return reinterpret_cast<std::uint8_t*>(text.data()); }

template <typename Result, typename Argument>
void expectRows(Result (*convert)(Argument), const std::vector<std::pair<double, double>>& rows) {
  for (const auto& [argument, result] : rows) {
    EXPECT_DOUBLE_EQ(convert(static_cast<Argument>(argument)), result) << argument;
  }
}

TEST(SoundConvert, ReadsAndMakesExtendedFloats) {
  // The exponent, the top of the mantissa, and the number that is read from them.
  const std::uint32_t rows[][3] = {{0x000B, 0xFA000000, 8000},  {0x401E, 0xFFFFFFFF, 0xFFFFFFFF},
                                   {0x400B, 0x80040000, 4097},  {0x3FFF, 0x80000000, 1},
                                   {0x400E, 0xAC440000, 44100}, {0x3FFE, 0x80000000, 1},
                                   {0x3FFD, 0xFFFFFFFF, 0},     {0x401F, 0xFFFFFFFF, 0}};
  std::string bytes;
  for (const auto& [exponent, top, expected] : rows) {
    std::uint32_t value = 7;
    SoundConvert::readExtended(value, raw(bytes = Bytes().be16(exponent).be32(top).fill(4, 0xFF)));
    EXPECT_EQ(value, expected) << exponent;
  }
  SoundConvert::makeExtended(raw(bytes), 44100);
  EXPECT_EQ(bytes, Bytes().be16(0x000E).be32(44100U << 16).fill(4).str());
  SoundConvert::makeExtended(raw(bytes), 1);
  EXPECT_EQ(bytes, Bytes().be16(0).be32(1U << 31).fill(4).str());
}

TEST(SoundConvert, SwapsWholePairsAndReadsNothingElse) {
  std::string text = "abcde";
  EXPECT_EQ(SoundConvert::swapBytes(nullptr, raw(text), 1), raw(text));
  const std::unique_ptr<std::uint8_t[]> made(SoundConvert::swapBytes(raw(text), nullptr, 4));
  EXPECT_EQ(SoundConvert::swapBytes(made.get() + 1, raw(text), 3), raw(text));
  EXPECT_EQ(text, "dacde");
}

TEST(SoundConvert, ConvertsUnits) {
  expectRows(+[](std::uint16_t bits) { return SoundConvert::sampleCount(1003, bits); },
             {{4, 500}, {8, 1003}, {16, 501}, {12, 0}});
  expectRows(SoundConvert::centsToSemitones, {{-150, -1}, {199, 1}});
  expectRows(SoundConvert::pitchToHertz, {{6900 * 65536, 440}, {8100 * 65536, 880}});
  expectRows(SoundConvert::fixedTenthsToDouble, {{655360, 1}});
  expectRows(SoundConvert::timeToMilliseconds, {{0x8000000, 0}, {1200 * 65536, 2000}});
  expectRows(SoundConvert::gainToByte, {{1, 0}, {-1, 0xFE}, {-96, 1}});
  expectRows(SoundConvert::percentTo127, {{-50, 0}, {-49, 2}, {0, 64}, {50, 127}});
  expectRows(SoundConvert::scale127To31, {{-5, -1}, {0, 0}, {1, 1}, {5, 2}, {127, 31}});
  expectRows(SoundConvert::descendingThresholdIndex,
             {{47, 31}, {38, 0}, {27, 1}, {1.15, 20}, {0, 28}});
}

}  // namespace tavrel::test
