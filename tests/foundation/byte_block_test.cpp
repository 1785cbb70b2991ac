#include "foundation/byte_block.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(ByteBlockTest, RoundsUpWithoutWrapping) {
  EXPECT_EQ(roundUp(0, 4), 0U);
  EXPECT_EQ(roundUp(1, 4), 4U);
  EXPECT_EQ(roundUp(4, 4), 4U);
  EXPECT_EQ(roundUp(0xFFFFFFFF, 2), 0x100000000U);
}

}  // namespace tavrel::test
