#include "platform/large_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace tavrel::test {

namespace {

TEST(LargePages, LeaveTheContentsOfABlockAlone) {
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, kLargePageSize, 3 * kLargePageSize + 1}) {
    std::vector<char> block(size + 1, 'x');
    preferLargePages(&block[1], size);
    EXPECT_EQ(std::count(block.begin(), block.end(), 'x'), size + 1) << size;
  }
}

TEST(LargePages, LeaveAHeapThatServesBlocksOfAllSizes) {
  prepareHeap();
  for (std::size_t size = 1; size < 64 * kLargePageSize; size *= 5) {
    const std::vector<char> block(size, 'x');
    EXPECT_EQ(std::count(block.begin(), block.end(), 'x'), size);
  }
}

}  // namespace

}  // namespace tavrel::test
