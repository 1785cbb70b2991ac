// Limits the memory of the code between construction and destruction: it may never hold more than
// four times the input and 16 MiB. A sanitizer's runtime does the counting, so a program without
// one has no limit.
#pragma once

#include <cstddef>

namespace tavrel::fuzz {

/// Makes allocations out of proportion fail. A MIDI event's payload is allocated with the size that
/// the event claims, however short the file is.
enum class LargeBlocks { count, refuse };

class MemoryBound {
 public:
  explicit MemoryBound(std::size_t inputSize, LargeBlocks largeBlocks = LargeBlocks::count);
  ~MemoryBound();
  MemoryBound(const MemoryBound&) = delete;
  MemoryBound& operator=(const MemoryBound&) = delete;
};

}  // namespace tavrel::fuzz
