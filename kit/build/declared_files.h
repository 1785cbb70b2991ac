// The list of the files that a build may read: one name a line, relative to the folder of the
// build.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "kit/build/absolute_paths.h"

namespace tavrel::kit {

class DeclaredFiles {
 public:
  /// Reads the list. Throws Failure if it can't be read.
  explicit DeclaredFiles(const std::string& listPath);

  /// Marks a file as used, whatever its name is spelled like. Returns false if it isn't listed.
  bool use(const std::string& path);

  /// Returns the names that were listed and not used, in the list's order.
  [[nodiscard]] std::vector<std::string> unused() const;

 private:
  struct File {
    std::string name;  ///< as it was listed
    bool isUsed = false;
  };

  AbsolutePaths paths_;
  std::vector<File> files_;
  std::map<std::string, std::size_t, std::less<>> indices_;  ///< in `files_`, by absolute path
};

}  // namespace tavrel::kit
