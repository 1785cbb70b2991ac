#include "platform/large_pages.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <string>

#include "foundation/byte_block.h"

namespace tavrel::test {

constexpr std::uintptr_t kMebibyte = std::uintptr_t{1} << 20U;

/// Returns how many of the `size` bytes at `block` the system lists as large pages, in MiB.
std::uintptr_t largePages(const void* block, std::uintptr_t size) {
  const auto start = reinterpret_cast<std::uintptr_t>(block);
  std::ifstream list("/proc/self/smaps");
  std::uintptr_t sum = 0;
  std::uintptr_t first = 0;
  std::uintptr_t end = 0;
  for (std::string line; std::getline(list, line);) {
    std::uintptr_t next[2] = {};
    if (std::sscanf(line.c_str(), "%zx-%zx", &next[0], &next[1]) == 2) {
      first = std::clamp(next[0], start, start + size);
      end = std::clamp(next[1], start, start + size);
    } else if (line.starts_with("VmFlags:") && line.find(" hg") != std::string::npos) {
      sum += end - first;
    }
  }
  return sum / kMebibyte;
}

TEST(LargePages, AreRequestedForPartsThatFillWholeOnes) {
  if (!std::ifstream("/sys/kernel/mm/transparent_hugepage/enabled")) {
    GTEST_SKIP() << "this host has none";
  }
  const ByteBlock block(new std::uint8_t[14 * kMebibyte]);
  const auto start = reinterpret_cast<std::uintptr_t>(block.get());
  auto* const aligned = block.get() + (2 * kMebibyte - start % (2 * kMebibyte));
  preferLargePages(aligned + 1, 8 * kMebibyte - 2);
  EXPECT_EQ(largePages(block.get(), 14 * kMebibyte), 4);
  preferLargePages(aligned + 8 * kMebibyte, 2 * kMebibyte);
  preferLargePages(aligned + 1, 1);
  EXPECT_EQ(largePages(block.get(), 14 * kMebibyte), 6);

  prepareHeap();
  for (const std::uintptr_t size : {31 * kMebibyte + 1000000, 64 * kMebibyte}) {
    EXPECT_GE(largePages(newBytes(size).get(), size), size / kMebibyte - 3);
    EXPECT_GE(largePages(ByteBlock(new std::uint8_t[size]).get(), size),
              size < 32 * kMebibyte ? 28 : 0);
    EXPECT_GE(largePages(nullptr, UINTPTR_MAX), 1022)
        << "in the heap, although all blocks are freed";
  }
}

}  // namespace tavrel::test
