// A machine that fails when a test says so: operator new of the whole program, and the calls on
// files, those of the C++ library included, but for writes to the standard streams.
#pragma once

#include <cstddef>

namespace tavrel::test {

/// Shortages of memory and of space last from the call on that fails; in a read at its end a file
/// has shrunk.
enum class Fault { none, oneAllocation, noMemory, noSpace, close, seek, read, readAtEnd };

/// The `call`th call of the fault's kind fails, counted from 1.
void breakCall(Fault fault, std::size_t call);

/// Ends the fault. True if it has struck.
bool repairCalls();

/// How many blocks of memory are allocated and not yet freed.
std::ptrdiff_t blocksHeld();

}  // namespace tavrel::test
