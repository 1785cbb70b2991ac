#include "foundation/byte_order.h"

#include <gtest/gtest.h>

#include "foundation/byte_block.h"

namespace tavrel::test {

TEST(ByteOrderTest, LoadsNumbersInBothOrders) {
  const std::uint8_t bytes[] = {0x81, 0x92, 0xA3, 0xB4};
  EXPECT_EQ(loadLittle16(bytes), 0x9281);
  EXPECT_EQ(loadLittle32(bytes), 0xB4A39281U);
  EXPECT_EQ(loadBig16(bytes), 0x8192);
  EXPECT_EQ(loadBig32(bytes), 0x8192A3B4U);
  EXPECT_EQ(swapped16(0x8192), 0x9281);
  EXPECT_EQ(littleFourCc("AB\xFFZ..."), 0x5AFF4241U);
  EXPECT_EQ(bigFourCc("AB\xFFZ..."), 0x4142FF5AU);
}

/// The bytes stored, the first one highest, before zeros.
template <typename Number>
std::uint32_t stored(void (*store)(std::uint8_t*, Number), Number value) {
  std::uint8_t bytes[4] = {};
  store(bytes, value);
  return loadBig32(bytes);
}

TEST(ByteOrderTest, StoresNumbersInBothOrdersAndNoByteMore) {
  EXPECT_EQ(stored<std::uint16_t>(storeLittle16, 0x8192), 0x92810000U);
  EXPECT_EQ(stored<std::uint32_t>(storeLittle24, 0x8192A3B4), 0xB4A39200U);
  EXPECT_EQ(stored<std::uint32_t>(storeLittle32, 0x8192A3B4), 0xB4A39281U);
  EXPECT_EQ(stored<std::uint16_t>(storeBig16, 0x8192), 0x81920000U);
  EXPECT_EQ(stored<std::uint32_t>(storeBig24, 0x8192A3B4), 0x92A3B400U);
  EXPECT_EQ(stored<std::uint32_t>(storeBig32, 0x8192A3B4), 0x8192A3B4U);
}

TEST(ByteBlockTest, RoundsUpToAMultiple) {
  EXPECT_EQ(roundUp(8, 4), 8U);
  EXPECT_EQ(roundUp(9, 4), 12U);
  EXPECT_EQ(roundUp(0xFFFFFFFF, 4), 0x100000000U);
}

}  // namespace tavrel::test
