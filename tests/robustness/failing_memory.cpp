#include "tests/robustness/failing_memory.h"

#include <algorithm>
#include <cstdlib>
#include <new>

namespace {

using tavrel::test::Shortage;

struct Memory {
  std::size_t allocationsLeft = 0;  // up to the one that fails; 0: none does
  Shortage shortage = Shortage::once;
  bool hasFailed = false;
  std::ptrdiff_t blocks = 0;
};

Memory memory;

bool failsNow() {
  if (memory.allocationsLeft == 0) {
    return false;
  }
  if (memory.allocationsLeft > 1) {
    --memory.allocationsLeft;
    return false;
  }
  if (memory.shortage == Shortage::once) {
    memory.allocationsLeft = 0;
  }
  memory.hasFailed = true;
  return true;
}

void* allocate(std::size_t size) {
  void* block = failsNow() ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
  if (block != nullptr) {
    ++memory.blocks;
  }
  return block;
}

void* allocateOrThrow(std::size_t size) {
  void* block = allocate(size);
  if (block == nullptr) {
    throw std::bad_alloc();
  }
  return block;
}

void release(void* block) {
  if (block != nullptr) {
    --memory.blocks;
    std::free(block);
  }
}

}  // namespace

void* operator new(std::size_t size) { return allocateOrThrow(size); }
void* operator new[](std::size_t size) { return allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return allocate(size);
}
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, std::size_t /*size*/) noexcept { release(block); }

namespace tavrel::test {

void failMemory(std::size_t allocation, Shortage shortage) {
  memory.allocationsLeft = allocation;
  memory.shortage = shortage;
  memory.hasFailed = false;
}

bool restoreMemory() {
  memory.allocationsLeft = 0;
  return memory.hasFailed;
}

std::ptrdiff_t blocksHeld() { return memory.blocks; }

}  // namespace tavrel::test
