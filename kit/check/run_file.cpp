#include "kit/check/run_file.h"

#include <algorithm>

#include "foundation/text_utilities.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// A path in two parts.
struct FolderAndName {
  std::string folder;  ///< "." for the current one
  std::string name;
};

FolderAndName splitPath(const std::string& path) {
  const std::size_t start = path.find_last_of(kHostSeparators) + 1;
  return {start == 0 ? "." : path.substr(0, start), path.substr(start)};
}

/// Returns true if two files, of which none is there yet, would be one.
bool willBeSame(const RunFile& first, const RunFile& second) {
  const FolderAndName one = splitPath(first.path);
  const FolderAndName other = splitPath(second.path);
  if (!equalsIgnoringCase(one.name.c_str(), other.name.c_str())) {
    return false;
  }
  const auto folder = fileIdentity(one.folder.c_str());
  const bool isOneFolder =
      folder ? folder == fileIdentity(other.folder.c_str()) : one.folder == other.folder;
  return isOneFolder && (one.name == other.name || ignoresCase(one.folder.c_str()));
}

}  // namespace

RunFile runFile(std::string path) {
  const auto identity = fileIdentity(path.c_str());
  return {.path = std::move(path), .identity = identity};
}

bool isSame(const RunFile& first, const RunFile& second) {
  return first.identity || second.identity ? first.identity == second.identity
                                           : willBeSame(first, second);
}

bool isSameFile(const std::string& path, const std::string& other) {
  const auto identity = fileIdentity(path.c_str());
  return identity && identity == fileIdentity(other.c_str());
}

bool isOneOf(const std::string& path, const std::vector<std::string>& others) {
  const RunFile file = runFile(path);
  return std::any_of(others.begin(), others.end(),
                     [&file](const std::string& other) { return isSame(file, runFile(other)); });
}

}  // namespace tavrel::kit
