// The files that the operands of `tavkit new` lead to. Names are relative to the current folder,
// which must be that of the script.
#pragma once

#include <string>
#include <vector>

namespace tavrel::kit {

struct FoundFile {
  std::string name;     ///< as a script has it, with backslashes between folders
  std::string path;     ///< as the host has it
  std::string fault{};  ///< why nothing can be found there, if this is a folder
};

/// Returns all files that are among `paths`, or in folders that are, sorted by name. Folders are
/// walked to the end, each of them once, however many links lead to it. What is hidden in a folder,
/// under a name that starts with a dot, is left out. `paths` are absolute.
/// Throws Failure for a path where nothing is.
std::vector<FoundFile> findFiles(const std::vector<std::string>& paths);

}  // namespace tavrel::kit
