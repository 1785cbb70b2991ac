// Compares what is written with a file that is there, without keeping it in memory.
#pragma once

#include <array>
#include <cstdint>
#include <fstream>
#include <streambuf>
#include <string>

namespace tavrel::kit {

/// Takes what would be written to a file. Writing never fails. Not for reading.
class ComparingBuffer : public std::streambuf {
 public:
  /// A file at the host's path `path` that can't be read is different from everything.
  explicit ComparingBuffer(const std::string& path);

  /// Returns true if everything that was written is what the file has, and the file is no longer.
  [[nodiscard]] bool isEqual() const { return isEqual_ && end_ == size_; }

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize count) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;
  int sync() override { return 0; }

 private:
  void compare(const char* text, std::size_t count);

  std::filebuf file_;
  std::array<char, 65536> piece_{};
  std::uint64_t size_ = 0;
  std::uint64_t position_ = 0;
  std::uint64_t end_ = 0;  // of what was written
  bool isEqual_ = false;
};

}  // namespace tavrel::kit
