// Holds the code between construction and destruction to its share of memory: at no moment may it
// hold more than four times the input and 16 MiB. Without a sanitizer in the program, which counts
// for it, nothing is held.
#pragma once

#include <cstddef>

namespace tavrel::fuzz {

/// What becomes of a block that is out of all proportion. A MIDI event's payload is allocated as
/// long as the event claims to be, however short the file: there is no memory for those.
enum class LargeBlocks { count, refuse };

class MemoryBound {
 public:
  explicit MemoryBound(std::size_t inputSize, LargeBlocks largeBlocks = LargeBlocks::count);
  ~MemoryBound();
  MemoryBound(const MemoryBound&) = delete;
  MemoryBound& operator=(const MemoryBound&) = delete;
};

}  // namespace tavrel::fuzz
