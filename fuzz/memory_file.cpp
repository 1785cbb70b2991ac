#include "fuzz/memory_file.h"

#include <sys/mman.h>
#include <unistd.h>

#include "fuzz/require.h"

namespace tavrel::fuzz {

MemoryFile::MemoryFile()
    : descriptor_(memfd_create("input", 0)), path_("/proc/self/fd/" + std::to_string(descriptor_)) {
  require(descriptor_ >= 0);
}

MemoryFile::~MemoryFile() { close(descriptor_); }

void MemoryFile::fill(const std::uint8_t* bytes, std::size_t size) {
  require(ftruncate(descriptor_, 0) == 0);
  require(pwrite(descriptor_, bytes, size, 0) == static_cast<ssize_t>(size));
}

}  // namespace tavrel::fuzz
