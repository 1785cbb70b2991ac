#include "platform/folder.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

#include "platform/last_error.h"

namespace tavrel {

std::error_code listFolder(const char* path, std::vector<std::string>& names) {
  names.clear();
  const auto close = [](DIR* folder) { closedir(folder); };
  const std::unique_ptr<DIR, decltype(close)> folder(opendir(path), close);
  if (!folder) {
    return lastError();
  }
  const auto next = [&folder] {
    errno = 0;  // at the end readdir leaves it alone
    return readdir(folder.get());
  };
  while (const dirent* entry = next()) {
    const std::string_view name = static_cast<const char*>(entry->d_name);
    if (name != "." && name != "..") {
      names.emplace_back(name);
    }
  }
  const std::error_code error = lastError();
  std::sort(names.begin(), names.end());
  return error;
}

}  // namespace tavrel
