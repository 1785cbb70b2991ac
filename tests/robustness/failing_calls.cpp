#include "tests/robustness/failing_calls.h"

#include <dlfcn.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace tavrel::test {

Machine machine;

namespace {

/// Counts one call. Returns true if the fault hits it.
bool strikes(Fault fault) {
  const bool isLasting = fault == Fault::noMemory || fault == Fault::noSpace;
  if (fault != machine.fault || (machine.hasStruck && !isLasting)) {
    return false;
  }
  machine.hasStruck = machine.hasStruck || --machine.callsLeft == 0;
  errno = EIO;  // not a reason to try again
  return machine.hasStruck;
}

/// Writes to the standard streams never fail.
bool isFull(int file) { return file > STDERR_FILENO && strikes(Fault::noSpace); }

/// Reduces the size of a transfer, and returns false if it is interrupted.
bool proceeds(int file, std::size_t& size) {
  static bool wasInterrupted = false;
  if (machine.fault != Fault::inPieces || file <= STDERR_FILENO) {
    return true;
  }
  size = (size + 1) / 2;
  errno = EINTR;
  wasInterrupted = !wasInterrupted;
  return !wasInterrupted;
}

void* allocate(std::size_t size) {
  const bool fails = strikes(Fault::oneAllocation) || strikes(Fault::noMemory);
  void* block = fails ? nullptr : std::malloc(std::max<std::size_t>(size, 1));
  machine.blocks += block != nullptr ? 1 : 0;
  return block;
}

void* allocateOrThrow(std::size_t size) {
  void* block = allocate(size);
  return block != nullptr ? block : throw std::bad_alloc();
}

void release(void* block) {
  machine.blocks -= block != nullptr ? 1 : 0;
  std::free(block);
}

}  // namespace
}  // namespace tavrel::test

using namespace tavrel::test;

void* operator new(size_t size) { return allocateOrThrow(size); }
void* operator new[](size_t size) { return allocateOrThrow(size); }
void* operator new(size_t size, const std::nothrow_t& /*tag*/) noexcept { return allocate(size); }
void* operator new[](size_t size, const std::nothrow_t& /*tag*/) noexcept { return allocate(size); }
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, size_t /*size*/) noexcept { release(block); }
void operator delete[](void* block, size_t /*size*/) noexcept { release(block); }

extern "C" {

ssize_t write(int file, const void* bytes, size_t size) {
  return isFull(file) || !proceeds(file, size) ? -1 : syscall(SYS_write, file, bytes, size);
}

ssize_t writev(int file, const iovec* parts, int count) {
  return isFull(file) ? -1 : syscall(SYS_writev, file, parts, count);
}

ssize_t read(int file, void* bytes, size_t size) {
  if (strikes(Fault::read) || !proceeds(file, size)) {
    return -1;
  }
  return strikes(Fault::readAtEnd) ? 0 : syscall(SYS_read, file, bytes, size);
}

int fsync(int file) {
  return strikes(Fault::close) ? -1 : static_cast<int>(syscall(SYS_fsync, file));
}

int fclose(FILE* file) {
  static const auto original = reinterpret_cast<int (*)(FILE*)>(dlsym(RTLD_NEXT, "fclose"));
  const int result = original(file);
  return strikes(Fault::close) ? EOF : result;
}

}  // extern "C"
