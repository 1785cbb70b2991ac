#include "foundation/bit_utilities.h"

#include <gtest/gtest.h>

namespace tavrel::test {
namespace {

TEST(BitUtilitiesTest, ExtractBitsSplitsAStatusByteAndStaysWithinTheWord) {
  EXPECT_EQ(extractBits(0x90, 4, 4), 9);
  EXPECT_EQ(extractBits(0x90, 0, 4), 0);
  EXPECT_EQ(extractBits(0xFFFF, 3, 0), 0);
  EXPECT_EQ(extractBits(0xABCD, 12, 40), 0xA) << "a width beyond the word";
  EXPECT_EQ(extractBits(0xABCD, 16, 4), 0) << "a start beyond the word";
  EXPECT_EQ(lowBits(0xABCD, 12), 0xBCD);
}

std::uint16_t inserted(std::uint16_t value, std::uint16_t start, std::uint16_t width) {
  std::uint16_t target = 0xFFFF;
  insertBits(target, value, start, width);
  return target;
}

TEST(BitUtilitiesTest, InsertBitsLeavesTheOtherBits) {
  EXPECT_EQ(inserted(0xFFF5, 4, 4), 0xFF5F);
  EXPECT_EQ(inserted(0, 0, 0), 0xFFFF);
  EXPECT_EQ(inserted(0, 0, 16), 0);
  EXPECT_EQ(inserted(2, 14, 9), 0xBFFF) << "a width beyond the word";
  EXPECT_EQ(inserted(0, 16, 4), 0xFFFF) << "a start beyond the word";
}

TEST(BitUtilitiesTest, HalvesAreTheRightOnes) {
  EXPECT_EQ(combineNibbles(0x12, 0x34), 0x14);
  EXPECT_EQ(keepHighNibble(0x12), 0x10);
  EXPECT_EQ(keepLowNibble(0x12), 0x02);
  EXPECT_EQ(highByte(0x1234), 0x12);
  EXPECT_EQ(lowByte(0x1234), 0x34);
  EXPECT_EQ(highWord(0x12345678), 0x1234);
  EXPECT_EQ(lowWord(0x12345678), 0x5678);
}

template <typename Target>
Target cleared(Target target, Target mask) {
  clearBits(target, mask);
  return target;
}

TEST(BitUtilitiesTest, ClearBitsFlipsTheMaskIfAnyOfItsBitsIsSet) {
  EXPECT_EQ(cleared<std::uint8_t>(0x88, 0x80), 0x08);
  EXPECT_EQ(cleared<std::uint16_t>(0x8001, 0xC000), 0x4001) << "clears one bit, sets the other";
  EXPECT_EQ(cleared<std::uint32_t>(0x80000001, 0x0000000E), 0x80000001) << "none of the mask set";
  std::uint32_t target = 0x80000001;
  setBits(target, 0x80010000);
  EXPECT_EQ(target, 0x80010001);
}

TEST(BitUtilitiesTest, PrintBinaryHasAsManyDigitsAsTheTypeHasBits) {
  testing::internal::CaptureStdout();
  printBinary(std::uint16_t{5});
  printBinary(std::uint32_t{0x80000005});
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Decimal Value: 5 Binary Value: 0000000000000101\n"
            "Decimal Value: 2147483653 Binary Value: 10000000000000000000000000000101\n");
}

}  // namespace
}  // namespace tavrel::test
