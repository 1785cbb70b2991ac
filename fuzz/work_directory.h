// Temporary directory that is the current one as long as the object exists, so that relative names
// in an input are files in it. Owns the directory and its content.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/small_build.h"

namespace tavrel::fuzz {

class WorkDirectory {
 public:
  /// Creates these files in it.
  explicit WorkDirectory(const std::vector<SmallFile>& files = {});
  ~WorkDirectory();
  WorkDirectory(const WorkDirectory&) = delete;
  WorkDirectory& operator=(const WorkDirectory&) = delete;

  /// Writes or replaces a file.
  static void write(const char* name, std::string_view content);

  /// Deletes all files but directories.
  static void removeFiles();

 private:
  std::filesystem::path before_;
  std::string directory_;
};

}  // namespace tavrel::fuzz
