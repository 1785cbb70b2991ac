// What is in the folders of assets, to find the file that a wrong name means. Each folder is listed
// once. Names are those of scripts: a backslash separates folders on every host.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::kit {

class FolderNames {
 public:
  /// Returns the name of the file that `name`, which isn't there, may mean: each part of it that
  /// isn't there is replaced by the nearest one in its folder. Returns the empty string if there is
  /// none, or if many names have been looked for: then the folder is wrong, not the names.
  std::string nearestName(const std::string& name);

  /// Returns the only name of a file that differs from `name`, which isn't there, in nothing but
  /// case. Returns the empty string if there is none or more than one.
  std::string onlyOtherCase(const std::string& name);

  /// Returns true if the current folder has an entry of this very name.
  bool has(const std::string& name);

  /// Returns `name`, whose file is there, as the folders spell it. Differs from `name` only where
  /// the file system ignores case.
  std::string spelling(const std::string& name);

 private:
  using Choose = std::string (*)(std::string_view part, const std::vector<std::string>& names);

  std::string replaceParts(const std::string& name, Choose choose);
  const std::vector<std::string>& namesIn(const std::string& folder);

  std::map<std::string, std::vector<std::string>> folders_;  // sorted names by folder
  std::uint64_t compared_ = 0;                               // names, by choose
};

}  // namespace tavrel::kit
