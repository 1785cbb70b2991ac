#include "kit/build/absolute_paths.h"

#include <filesystem>

#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

namespace fs = std::filesystem;

/// Returns what the host finds under ".." in `folder`.
fs::path parentOf(const fs::path& folder) {
  std::error_code error;
  if (fs::is_symlink(folder, error)) {
    const fs::path target = fs::canonical(folder, error);
    return (error ? folder : target).parent_path();
  }
  return folder.parent_path();
}

std::string absoluteFolder(const std::string& folder) {
  fs::path result;
  for (const fs::path& part : fs::absolute(folder.empty() ? "." : folder)) {
    if (part == "..") {
      result = parentOf(result);
    } else if (!part.empty() && part != ".") {
      result /= part;
    }
  }
  return (result / "").string();
}

}  // namespace

std::string AbsolutePaths::of(const std::string& path) {
  const std::size_t start = path.find_last_of(kHostSeparators) + 1;  // 0 without a separator
  const std::string folder = path.substr(0, start);
  auto known = folders_.find(folder);
  if (known == folders_.end()) {
    known = folders_.emplace(folder, absoluteFolder(folder)).first;
  }
  return known->second + path.substr(start);
}

}  // namespace tavrel::kit
