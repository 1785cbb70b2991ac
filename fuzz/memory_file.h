// A file in memory, with a path under which the readers find it: one input after the other stands
// in it, without a disk in between. Owns the file; if the host gives none, the fuzzer stops.
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
