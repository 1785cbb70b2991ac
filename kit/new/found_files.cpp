#include "kit/new/found_files.h"

#include <fmt/format.h>

#include <algorithm>
#include <deque>
#include <filesystem>
#include <set>
#include <system_error>
#include <tuple>

#include "kit/frame/failure.h"
#include "platform/file_identity.h"
#include "platform/folder.h"

namespace tavrel::kit {

namespace {

namespace fs = std::filesystem;

/// Returns a path without links and dots in the folders, but with the name that the last part has.
/// Throws Failure if there is nothing.
fs::path settled(const fs::path& path) {
  const fs::path name = path.filename();
  const bool isName = !name.empty() && name != "." && name != "..";
  std::error_code error;
  const fs::path folder = fs::canonical(isName ? path.parent_path() : path, error);
  if (error || !fs::exists(path, error)) {
    throw Failure(fmt::format("can't read {}: {}", path.string(),
                              error ? error.message() : "there is no such file"));
  }
  return isName ? folder / name : folder;
}

std::string scriptName(const fs::path& path) {
  std::string name = path.generic_string();
  std::replace(name.begin(), name.end(), '/', '\\');
  return name;
}

/// Returns true if a link leads to a folder in which it is.
bool leadsUp(const fs::path& link) {
  std::error_code ignored;
  const fs::path target = fs::canonical(link, ignored);
  const fs::path place = fs::canonical(link.parent_path(), ignored);
  return std::mismatch(target.begin(), target.end(), place.begin(), place.end()).first ==
         target.end();
}

class Walk {
 public:
  void add(const fs::path& path) {
    std::error_code ignored;
    if (fs::is_directory(path, ignored)) {
      folders_.push_back(path);
    } else {
      addFile(path);
    }
  }

  std::vector<FoundFile> run() {
    while (!folders_.empty()) {
      const fs::path folder = std::move(folders_.front());
      folders_.pop_front();
      const auto identity = fileIdentity(folder.string().c_str());
      if (!identity || walked_.insert(*identity).second) {
        list(folder);
      }
    }
    return std::move(files_);
  }

 private:
  void addFile(const fs::path& path, std::string fault = "") {
    const fs::path relative = path.lexically_relative(from_);
    if (relative.empty()) {
      throw Failure(fmt::format("no relative name leads from the script to {}", path.string()));
    }
    files_.push_back({scriptName(relative), relative.string(), std::move(fault)});
  }

  void list(const fs::path& folder) {
    std::vector<std::string> names;
    if (const std::error_code error = listFolder(folder.string().c_str(), names)) {
      addFile(folder, fmt::format("the folder can't be read: {}", error.message()));
    }
    for (const std::string& name : names) {
      if (!name.starts_with('.')) {
        addEntry(folder / name);
      }
    }
  }

  /// Links to folders come last, so that a folder is walked under its own name if that is found.
  void addEntry(const fs::path& path) {
    std::error_code ignored;
    if (!fs::is_directory(path, ignored)) {
      addFile(path);
    } else if (!fs::is_symlink(path, ignored)) {
      folders_.push_front(path);
    } else if (!leadsUp(path)) {
      folders_.push_back(path);
    }
  }

  fs::path from_ = fs::canonical(".");  ///< the folder of the script
  std::deque<fs::path> folders_;
  std::set<FileIdentity> walked_;
  std::vector<FoundFile> files_;
};

}  // namespace

std::vector<FoundFile> findFiles(const std::vector<std::string>& paths) {
  Walk walk;
  for (const std::string& path : paths) {
    walk.add(settled(path));
  }
  std::vector<FoundFile> files = walk.run();
  std::sort(files.begin(), files.end(), [](const FoundFile& a, const FoundFile& b) {
    return std::tie(a.name, a.path) < std::tie(b.name, b.path);
  });
  const auto isSame = [](const FoundFile& a, const FoundFile& b) { return a.path == b.path; };
  files.erase(std::unique(files.begin(), files.end(), isSame), files.end());
  return files;
}

}  // namespace tavrel::kit
