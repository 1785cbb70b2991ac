#include "tests/robustness/failing_files.h"

#include <dlfcn.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace tavrel::test {
namespace {

constexpr FileFault kNoFault = static_cast<FileFault>(-1);

FileFault current = kNoFault;
std::size_t callsLeft = 0;
bool hasStruck = false;

/// Counts one call down; true if the fault strikes it.
bool strikes(FileFault fault) {
  if (fault != current || (hasStruck && fault != FileFault::noSpace)) {
    return false;
  }
  hasStruck = hasStruck || --callsLeft == 0;
  return hasStruck;
}

bool fails(FileFault fault, int reason) {
  if (!strikes(fault)) {
    return false;
  }
  errno = reason;
  return true;
}

bool writingFails(int file) {
  return file > STDERR_FILENO &&
         (fails(FileFault::noSpace, ENOSPC) || fails(FileFault::writeInterrupted, EINTR));
}

}  // namespace

void failFiles(FileFault fault, std::size_t call) {
  current = fault;
  callsLeft = call;
  hasStruck = false;
}

bool restoreFiles() {
  current = kNoFault;
  return hasStruck;
}

}  // namespace tavrel::test

// These stand in front of the C library's own.
extern "C" {

ssize_t write(int file, const void* bytes, size_t size) {
  using namespace tavrel::test;
  if (writingFails(file)) {
    return -1;
  }
  if (file > STDERR_FILENO && size > 1 && strikes(FileFault::writeCutShort)) {
    size /= 2;
  }
  return syscall(SYS_write, file, bytes, size);
}

ssize_t writev(int file, const iovec* blocks, int count) {
  using namespace tavrel::test;
  if (writingFails(file)) {
    return -1;
  }
  if (file > STDERR_FILENO && strikes(FileFault::writeCutShort)) {
    return syscall(SYS_write, file, blocks->iov_base, blocks->iov_len / 2);
  }
  return syscall(SYS_writev, file, blocks, count);
}

ssize_t read(int file, void* bytes, size_t size) {
  using namespace tavrel::test;
  if (fails(FileFault::readFails, EIO) || fails(FileFault::readInterrupted, EINTR)) {
    return -1;
  }
  if (strikes(FileFault::readAtEnd)) {
    return 0;
  }
  return syscall(SYS_read, file, bytes, size > 1 && strikes(FileFault::readCutShort) ? 1 : size);
}

off64_t lseek64(int file, off64_t offset, int from) {
  using namespace tavrel::test;
  return fails(FileFault::seekFails, EIO) ? -1 : syscall(SYS_lseek, file, offset, from);
}

int fclose(FILE* file) {
  using namespace tavrel::test;
  static const auto original = reinterpret_cast<int (*)(FILE*)>(dlsym(RTLD_NEXT, "fclose"));
  const bool isFailing = fails(FileFault::closeFails, ENOSPC);
  const int result = original(file);
  if (isFailing) {
    errno = ENOSPC;
    return EOF;
  }
  return result;
}

}  // extern "C"
