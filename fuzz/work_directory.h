// A directory of the fuzzer's own that is its current directory as long as the object lives, so
// that the names in an input lead to files in it. Owns the directory with all that is in it.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/small_build.h"

namespace tavrel::fuzz {

class WorkDirectory {
 public:
  /// Begins with these files in it.
  explicit WorkDirectory(const std::vector<SmallFile>& files = {});
  ~WorkDirectory();
  WorkDirectory(const WorkDirectory&) = delete;
  WorkDirectory& operator=(const WorkDirectory&) = delete;

  /// Writes a file. One that is there is replaced.
  static void write(const char* name, std::string_view content);

  /// Deletes all files but directories.
  static void removeFiles();

 private:
  std::filesystem::path before_;
  std::string directory_;
};

}  // namespace tavrel::fuzz
