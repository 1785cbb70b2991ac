#include "foundation/byte_order.h"

#include <gtest/gtest.h>

#include <array>

namespace tavrel::test {

TEST(ByteOrderTest, LoadsNumbersInBothOrders) {
  const std::uint8_t bytes[] = {0x81, 0x92, 0xA3, 0xB4};
  EXPECT_EQ(loadLittle16(bytes), 0x9281);
  EXPECT_EQ(loadLittle24(bytes), 0xA39281U);
  EXPECT_EQ(loadLittle32(bytes), 0xB4A39281U);
  EXPECT_EQ(loadBig16(bytes), 0x8192);
  EXPECT_EQ(loadBig24(bytes), 0x8192A3U);
  EXPECT_EQ(loadBig32(bytes), 0x8192A3B4U);
  EXPECT_EQ(swapped16(0x8192), 0x9281);
  EXPECT_EQ(littleFourCc("AB\xFFZ..."), 0x5AFF4241U);
  EXPECT_EQ(bigFourCc("AB\xFFZ..."), 0x4142FF5AU);
}

using Stored = std::array<std::uint8_t, 5>;

template <typename Number>
Stored stored(void (*store)(std::uint8_t*, Number), Number value) {
  Stored bytes{};
  store(bytes.data(), value);
  return bytes;
}

TEST(ByteOrderTest, StoresNumbersInBothOrdersAndNoByteMore) {
  EXPECT_EQ(stored<std::uint16_t>(storeLittle16, 0x8192), (Stored{0x92, 0x81}));
  EXPECT_EQ(stored<std::uint32_t>(storeLittle24, 0x8192A3B4), (Stored{0xB4, 0xA3, 0x92}));
  EXPECT_EQ(stored<std::uint32_t>(storeLittle32, 0x8192A3B4), (Stored{0xB4, 0xA3, 0x92, 0x81}));
  EXPECT_EQ(stored<std::uint16_t>(storeBig16, 0x8192), (Stored{0x81, 0x92}));
  EXPECT_EQ(stored<std::uint32_t>(storeBig24, 0x8192A3B4), (Stored{0x92, 0xA3, 0xB4}));
  EXPECT_EQ(stored<std::uint32_t>(storeBig32, 0x8192A3B4), (Stored{0x81, 0x92, 0xA3, 0xB4}));
}

}  // namespace tavrel::test
