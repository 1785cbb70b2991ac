// One input of a fuzzer as a file with a path. As long as the object exists, the console is silent
// and the memory of the reader is bounded.
#pragma once

#include <cstddef>
#include <cstdint>

#include "fuzz/memory_bound.h"
#include "fuzz/memory_file.h"
#include "fuzz/quiet_console.h"

namespace tavrel::fuzz {

class HostileFile {
 public:
  HostileFile(const std::uint8_t* bytes, std::size_t size,
              LargeBlocks largeBlocks = LargeBlocks::count)
      : path_(fileOf(bytes, size)), bound_(size, largeBlocks) {}

  [[nodiscard]] const char* path() const { return path_; }

 private:
  /// Returns the path of the file that holds the current input.
  static const char* fileOf(const std::uint8_t* bytes, std::size_t size) {
    silenceConsole();
    static MemoryFile file;
    file.fill(bytes, size);
    return file.path();
  }

  const char* path_;
  MemoryBound bound_;
};

}  // namespace tavrel::fuzz
