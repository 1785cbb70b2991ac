// A machine that fails when a test says so: operator new of the whole program, and the calls on
// files, those of the C++ library included, but for writes to the standard streams.
#pragma once

#include <cstddef>

namespace tavrel::test {

/// Shortages of memory and of space last from the call on that fails; in a read at its end a file
/// has shrunk.
enum class Fault { none, oneAllocation, noMemory, noSpace, close, read, readAtEnd };

struct Machine {
  Fault fault = Fault::none;
  std::size_t callsLeft = 0;  ///< of the fault's kind, the failing one included
  bool hasStruck = false;
  std::ptrdiff_t blocks = 0;  ///< of memory, allocated less freed
};

/// The one under this program.
extern Machine machine;

}  // namespace tavrel::test
