// Blocks of bytes for file images and payloads, owned by a type.
// Making one never throws; without memory it is null.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <new>

#include "platform/large_pages.h"

namespace tavrel {

using ByteBlock = std::unique_ptr<std::uint8_t[]>;

/// A block of `size` bytes that are not cleared: they are about to be overwritten, and memory that
/// nobody writes to is never touched. A size of 0 gives a block too. Null when memory is short.
inline ByteBlock newBytes(std::size_t size) {
  ByteBlock block(new (std::nothrow) std::uint8_t[size]);
  if (block && size >= kLargePageSize) {
    preferLargePages(block.get(), size);
  }
  return block;
}

/// `size` rounded up to a multiple of 4. The largest results are those of 64 bits, so that no size
/// of a file wraps to a small one.
constexpr std::uint64_t roundUpTo4(std::uint64_t size) { return (size + 3) & ~std::uint64_t{3}; }

}  // namespace tavrel
