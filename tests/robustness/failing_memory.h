// Memory that runs out when a test says so: operator new of the whole program, array and nothrow
// forms included, fails at the nth allocation from then on, or at that one alone.
#pragma once

#include <cstddef>

namespace tavrel::test {

enum class Shortage { once, lasting };

/// The next `allocation`, counted from 1, fails. 0 lets all of them succeed.
void failMemory(std::size_t allocation, Shortage shortage);

/// Ends the shortage. True if an allocation has failed since it began.
bool restoreMemory();

/// How many blocks are allocated and not yet freed.
std::ptrdiff_t blocksHeld();

}  // namespace tavrel::test
