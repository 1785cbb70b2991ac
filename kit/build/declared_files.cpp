#include "kit/build/declared_files.h"

#include <sstream>

#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

DeclaredFiles::DeclaredFiles(const std::string& listPath) {
  std::istringstream lines(readFile(listPath));
  for (std::string name; std::getline(lines, name);) {
    if (name.ends_with('\r')) {
      name.pop_back();
    }
    if (!name.empty() &&
        indices_.emplace(paths_.of(hostPath(name.c_str())), files_.size()).second) {
      files_.push_back({.name = name});
    }
  }
}

bool DeclaredFiles::use(const std::string& path) {
  const auto found = indices_.find(paths_.of(path));
  if (found == indices_.end()) {
    return false;
  }
  files_[found->second].isUsed = true;
  return true;
}

std::vector<std::string> DeclaredFiles::unused() const {
  std::vector<std::string> names;
  for (const File& file : files_) {
    if (!file.isUsed) {
      names.push_back(file.name);
    }
  }
  return names;
}

}  // namespace tavrel::kit
