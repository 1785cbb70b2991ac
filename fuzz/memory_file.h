// A file in memory with a path that the readers can open. Holds one input after another. Owns the
// file; if the host can't create it, the fuzzer stops.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tavrel::fuzz {

class MemoryFile {
 public:
  MemoryFile();
  ~MemoryFile();
  MemoryFile(const MemoryFile&) = delete;
  MemoryFile& operator=(const MemoryFile&) = delete;

  /// Replaces the content.
  void fill(const std::uint8_t* bytes, std::size_t size);

  [[nodiscard]] const char* path() const { return path_.c_str(); }

 private:
  int descriptor_;
  std::string path_;
};

}  // namespace tavrel::fuzz
