// An empty directory of a test's own, deleted with all its files when it ends.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tavrel::test {

class TemporaryDirectory {
 public:
  TemporaryDirectory();
  ~TemporaryDirectory();
  TemporaryDirectory(const TemporaryDirectory&) = delete;
  TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

  /// The full path of `name` in this directory, with slashes.
  [[nodiscard]] std::string path(std::string_view name = "") const;

  /// Writes a file and gives its full path. Fails the test if that can't be done.
  std::string write(std::string_view name, std::string_view content) const;

  /// The bytes of a file. Fails the test if it can't be read.
  [[nodiscard]] std::string read(std::string_view name) const;

  [[nodiscard]] bool has(std::string_view name) const;

 private:
  std::filesystem::path directory_;
};

}  // namespace tavrel::test
