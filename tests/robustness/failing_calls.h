// A machine that fails: the operators new and the calls of the C library that this program replaces
// fail when a test wants it.
#pragma once

#include <cstddef>

namespace tavrel::test {

/// `noMemory` and `noSpace` last from the failing call on. With `readAtEnd` a file has shrunk. With
/// `inPieces` nothing fails, but each transfer is interrupted once and then does half of its work.
enum class Fault { none, oneAllocation, noMemory, noSpace, close, read, readAtEnd, inPieces };

/// The machine that this program runs on.
struct Machine {
  Fault fault = Fault::none;
  std::size_t callsLeft = 0;  ///< of the fault's kind, the failing one included
  bool hasStruck = false;
  std::ptrdiff_t blocks = 0;  ///< of memory, allocated less freed
};

extern Machine machine;

}  // namespace tavrel::test
