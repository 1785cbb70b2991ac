#include "platform/large_pages.h"

#ifdef __GLIBC__

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <limits>

namespace tavrel {

// Packing 1 GiB of assets went from 2.3 times the time of `cat` to 1.25 times.
void preferLargePages(void* block, std::size_t size) {
  const auto start = reinterpret_cast<std::uintptr_t>(block);
  const std::uintptr_t firstPage = (start + kLargePageSize - 1) / kLargePageSize * kLargePageSize;
  const std::uintptr_t endOfLast = (start + size) / kLargePageSize * kLargePageSize;
  if (firstPage < endOfLast) {
    madvise(static_cast<char*>(block) + (firstPage - start), endOfLast - firstPage, MADV_HUGEPAGE);
  }
}

// Left alone, the heap grows in steps of 128 KiB that can't be large pages. So it grows once, by
// addresses only: what nobody touches takes no memory. Packing 2,000 small WAVs went from 2.1 times
// the time of `cat` to 1.3 times.
void prepareHeap() {
  constexpr int kReserve = 1 << 30;
  constexpr int kStep = 128 << 10;             // the usual growth, for when the reserve is used up
  constexpr int kLargestHeapBlock = 32 << 20;  // the most that the heap can be asked to take
  constexpr std::size_t kMoreThanFirstHeap = std::size_t{1} << 20U;

  mallopt(M_MMAP_THRESHOLD, kLargestHeapBlock);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_TOP_PAD, kReserve);
  auto* const oldEnd = static_cast<char*>(sbrk(0));
  // NOLINTBEGIN(cppcoreguidelines-no-malloc): the allocator itself is at work here
  void* volatile block = std::malloc(kMoreThanFirstHeap);  // volatile: unused, and yet needed
  std::free(block);
  // NOLINTEND(cppcoreguidelines-no-malloc)
  mallopt(M_TOP_PAD, kStep);
  const auto* const newEnd = static_cast<char*>(sbrk(0));
  preferLargePages(oldEnd, static_cast<std::size_t>(newEnd - oldEnd));
}

}  // namespace tavrel

#else

namespace tavrel {

void preferLargePages(void* /*block*/, std::size_t /*size*/) {}

void prepareHeap() {}

}  // namespace tavrel

#endif
