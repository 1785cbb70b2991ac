// One input of a fuzzer as a file, for as long as the object lives: under a path, with the console
// silent, and what reads it held to its share of memory.
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
  /// The path of the one file in which every input stands in its turn.
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
