#include "foundation/bit_utilities.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(BitUtilitiesTest, BitsBeyondTheWordReadAsZeroAndAreNotWritten) {
  EXPECT_EQ(extractBits(0xF90, 4, 4), 9);
  EXPECT_EQ(extractBits(0xABCD, 12, 40), 0xA);
  EXPECT_EQ(extractBits(0xABCD, 15, 4), 1);
  EXPECT_EQ(extractBits(0xABCD, 32, 4), 0);
  EXPECT_EQ(lowBits(0xFFFF, 15), 0x7FFF);
  std::uint16_t word = 0x0FFF;
  insertBits(word, 0xFF05, 4, 4);
  EXPECT_EQ(word, 0x0F5F);
  insertBits(word, 1, 15, 9);
  insertBits(word, 0, 32, 4);
  EXPECT_EQ(word, 0x8F5F);
}

TEST(BitUtilitiesTest, HalvesKeepTheirBits) {
  EXPECT_EQ(combineNibbles(0xA5, 0x3C), 0xAC);
  EXPECT_EQ(keepHighNibble(0xFF), 0xF0);
  EXPECT_EQ(keepLowNibble(0xFF), 0x0F);
  EXPECT_EQ(highByte(0x8142), 0x81);
  EXPECT_EQ(lowByte(0x8142), 0x42);
  EXPECT_EQ(highWord(0x81234567), 0x8123);
  EXPECT_EQ(lowWord(0x8123C567), 0xC567);
}

template <typename Word>
Word cleared(Word target, Word mask) {
  clearBits(target, mask);
  return target;
}

TEST(BitUtilitiesTest, AMaskClearsOneBitButExchangesSeveral) {
  EXPECT_EQ(cleared<std::uint8_t>(0x81, 0xC0), 0x41);
  EXPECT_EQ(cleared<std::uint8_t>(0x81, 0x60), 0x81) << "none of its bits is set";
  EXPECT_EQ(cleared<std::uint16_t>(0x8001, 0xC000), 0x4001);
  EXPECT_EQ(cleared<std::uint16_t>(0x8001, 0x6000), 0x8001);
  EXPECT_EQ(cleared<std::uint32_t>(0x80000001, 0xC0000000), 0x40000001U);
  EXPECT_EQ(cleared<std::uint32_t>(0x80000001, 0x60000000), 0x80000001U);
}

TEST(BitUtilitiesTest, PrintsAllDigitsOfWhatAMaskHasSet) {
  std::uint16_t word = 0x8005;
  std::uint32_t number = 0x80000005;
  setBits(word, 0xC000);
  setBits(number, 0xC0000000);
  testing::internal::CaptureStdout();
  printBinary(word);
  printBinary(number);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Decimal Value: 49157 Binary Value: 1100000000000101\n"
            "Decimal Value: 3221225477 Binary Value: 11000000000000000000000000000101\n");
}

}  // namespace tavrel::test
