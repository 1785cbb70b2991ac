// Makes calls fail on request: operator new of the whole program, and calls on files, also those of
// the C++ library, except writes to the standard streams.
#pragma once

#include <cstddef>

namespace tavrel::test {

/// `noMemory` and `noSpace` last from the failing call on. With `readAtEnd` a file has shrunk.
enum class Fault { none, oneAllocation, noMemory, noSpace, close, read, readAtEnd };

struct Machine {
  Fault fault = Fault::none;
  std::size_t callsLeft = 0;  ///< of the fault's kind, the failing one included
  bool hasStruck = false;
  std::ptrdiff_t blocks = 0;  ///< of memory, allocated less freed
};

/// The machine that this program runs on.
extern Machine machine;

}  // namespace tavrel::test
