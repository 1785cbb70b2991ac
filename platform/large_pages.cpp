#include "platform/large_pages.h"

#ifdef __GLIBC__

#include <malloc.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace tavrel {

namespace {

constexpr std::size_t kLargePageSize = std::size_t{2} << 20U;

}  // namespace

// Packing 1 GiB of assets took 2.3 times as long as `cat` without this and 1.25 times with it.
void preferLargePages(void* block, std::size_t size) {
  const auto start = reinterpret_cast<std::uintptr_t>(block);
  const std::uintptr_t firstPage = (start + kLargePageSize - 1) / kLargePageSize * kLargePageSize;
  const std::uintptr_t endOfLast = (start + size) / kLargePageSize * kLargePageSize;
  const std::uintptr_t length = std::max(firstPage, endOfLast) - firstPage;
  if (length > 0) {  // the call takes longer than to allocate a small block
    madvise(static_cast<char*>(block) + (firstPage - start), length, MADV_HUGEPAGE);
  }
}

// By default the heap grows in steps of 128 KiB, which are too small for large pages. Growing it
// once by a large range reserves addresses only; memory that isn't used costs nothing. Packing
// 2,000 small WAVs took 2.1 times as long as `cat` without this and 1.3 times with it.
void prepareHeap() {
  constexpr int kReserve = 1 << 30;
  constexpr int kStep = 128 << 10;             // the default, for growth beyond the reserve
  constexpr int kLargestHeapBlock = 32 << 20;  // largest threshold that mallopt accepts
  constexpr std::size_t kMoreThanFirstHeap = std::size_t{1} << 20U;

  mallopt(M_MMAP_THRESHOLD, kLargestHeapBlock);
  mallopt(M_TRIM_THRESHOLD, std::numeric_limits<int>::max());
  mallopt(M_TOP_PAD, kReserve);
  auto* const oldEnd = static_cast<char*>(sbrk(0));
  // NOLINTBEGIN(cppcoreguidelines-no-malloc): this configures the allocator itself
  void* volatile block =
      std::malloc(kMoreThanFirstHeap);  // volatile, or the call is optimised away
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
