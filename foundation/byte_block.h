// Owned blocks of bytes for file images and payloads. Allocating one never throws.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <new>

#include "platform/large_pages.h"

namespace tavrel {

using ByteBlock = std::unique_ptr<std::uint8_t[]>;

/// Allocates `size` uninitialised bytes. Returns null if memory runs out, or if the host can't
/// address a block of that size. A size of 0 also returns a block.
inline ByteBlock newBytes(std::uint64_t size) {
  if (size > std::numeric_limits<std::size_t>::max()) {
    return nullptr;
  }
  const auto count = static_cast<std::size_t>(size);
  ByteBlock block(new (std::nothrow) std::uint8_t[count]);
  if (block) {
    preferLargePages(block.get(), count);
  }
  return block;
}

/// Returns `size` rounded up to a multiple of `unit`, a power of two. Computed in 64 bits so that a
/// size near 4 GiB can't wrap.
constexpr std::uint64_t roundUp(std::uint64_t size, std::uint64_t unit) {
  return (size + unit - 1) & ~(unit - 1);
}

}  // namespace tavrel
