#include "foundation/bit_utilities.h"

#include <gtest/gtest.h>

namespace tavrel::test {

using Numbers = std::vector<std::uint32_t>;

TEST(BitUtilitiesTest, BitsAndHalvesAreTheRightOnesAndStayWithinTheWord) {
  EXPECT_EQ((Numbers{extractBits(0xF90, 4, 4), extractBits(0xABCD, 12, 40), lowBits(0x1234, 9),
                     extractBits(0xABCD, 16, 4), lowBits(0xFFFF, 15), combineNibbles(0x12, 0x34),
                     keepHighNibble(0x12), keepLowNibble(0x12), highByte(0x1234), lowByte(0x1234),
                     highWord(0x12345678), lowWord(0x12345678)}),
            (Numbers{9, 0xA, 0x34, 0, 0x7FFF, 0x14, 0x10, 0x02, 0x12, 0x34, 0x1234, 0x5678}));
  std::uint16_t word = 0xFFFF;
  insertBits(word, 0xFF05, 4, 4);
  insertBits(word, 2, 14, 9);
  insertBits(word, 0, 16, 4);
  clearBits(word, 0x6000);  // 0xBF5F up to here; clears one bit and sets the other
  std::uint32_t both = 0x80000001;
  clearBits(both, 0x0000000E);
  setBits(both, 0x80010000);
  testing::internal::CaptureStdout();
  printBinary(word);
  printBinary(both);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Decimal Value: 57183 Binary Value: 1101111101011111\n"
            "Decimal Value: 2147549185 Binary Value: 10000000000000010000000000000001\n");
}

}  // namespace tavrel::test
