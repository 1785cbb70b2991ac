#include "foundation/bit_utilities.h"

#include "tests/support/printed.h"

namespace tavrel::test {

TEST(BitUtilitiesTest, BitsBeyondTheWordReadAsZeroAndAreNotWritten) {
  EXPECT_EQ(extractBits(0xF90, 4, 4), 9);
  EXPECT_EQ(extractBits(0xABCD, 12, 40), 0xA);
  EXPECT_EQ(extractBits(0xABCD, 32, 4), 0);
  std::uint16_t word = 0x0FFF;
  insertBits(word, 0xFF06, 4, 4);
  EXPECT_EQ(word, 0x0F6F);
  insertBits(word, 1, 15, 9);
  insertBits(word, 0, 32, 4);
  EXPECT_EQ(word, 0x8F6F);
}

TEST(BitUtilitiesTest, HalvesKeepTheirBits) {
  EXPECT_EQ(combineNibbles(0xA5, 0x3C), 0xAC);
  EXPECT_EQ(combineNibbles(0xA0, 0x3F), 0xAF);
  EXPECT_EQ(keepHighNibble(0xFF), 0xF0);
  EXPECT_EQ(keepLowNibble(0xFF), 0x0F);
  EXPECT_EQ(highByte(0x8142), 0x81);
  EXPECT_EQ(lowByte(0x8142), 0x42);
  EXPECT_EQ(highWord(0x81234567), 0x8123);
  EXPECT_EQ(lowWord(0x8123C567), 0xC567);
}

TEST(BitUtilitiesTest, AMaskClearsOneBitButExchangesSeveralAndAllDigitsArePrinted) {
  std::uint8_t byte = 0x81;
  std::uint16_t word = 0x8001;
  std::uint32_t number = 0x80000001;
  clearBits(byte, 0xC0);
  clearBits(word, 0xC000);
  clearBits(number, 0xC0000000);
  clearBits(byte, 0x18);  // none of its bits is set
  clearBits(word, 0x1800);
  clearBits(number, 0x18000000);
  setBits(word, 0x4008);
  setBits(number, 0x40000008);
  EXPECT_EQ(byte, 0x41);
  EXPECT_EQ(printedBy([&] { printBinary(word), printBinary(number); }).output,
            "Decimal Value: 16393 Binary Value: 0100000000001001\n"
            "Decimal Value: 1073741833 Binary Value: 01000000000000000000000000001001\n");
}

}  // namespace tavrel::test
