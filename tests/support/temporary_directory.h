// A new directory for one test, deleted with all its files when the object is destroyed.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>

namespace tavrel::test {

class TemporaryDirectory {
 public:
  TemporaryDirectory() { EXPECT_TRUE(std::filesystem::create_directory(directory_)); }
  ~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(directory_, ignored);
  }
  TemporaryDirectory& operator=(TemporaryDirectory&&) = delete;  // disables copying too

  /// Returns the full path of `name` in this directory, with slashes.
  [[nodiscard]] std::string path(std::string_view name = "") const {
    return (directory_ / name).generic_string();
  }

  /// Writes a file and returns its full path. Fails the test if the file can't be written.
  std::string write(std::string_view name, std::string_view content) const {
    std::ofstream file(path(name), std::ios::binary);
    EXPECT_TRUE(file << content << std::flush) << "can't write " << path(name);
    return path(name);
  }

  /// Returns the bytes of a file. Fails the test if it can't be read.
  [[nodiscard]] std::string read(std::string_view name) const {
    std::ifstream file(path(name), std::ios::binary);
    EXPECT_TRUE(file) << "can't read " << path(name);
    return {std::istreambuf_iterator<char>(file), {}};
  }

 private:
  std::filesystem::path directory_ =
      std::filesystem::temp_directory_path() / ("tavrel" + std::to_string(std::random_device()()));
};

}  // namespace tavrel::test
