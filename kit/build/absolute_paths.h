// Absolute paths of the files of a build, which are read from other folders and compared.
#pragma once

#include <string>
#include <unordered_map>

namespace tavrel::kit {

/// Remembers each folder, since many files are in one.
class AbsolutePaths {
 public:
  /// Returns the absolute path of a file, without "." and "..". Only a link before ".." is
  /// followed: a build may see all its files as links.
  std::string of(const std::string& path);

 private:
  std::unordered_map<std::string, std::string> folders_;  ///< with a separator at the end
};

}  // namespace tavrel::kit
