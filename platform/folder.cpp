#include "platform/folder.h"

#include <dirent.h>

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string_view>

namespace tavrel {

std::error_code listFolder(const char* path, std::vector<std::string>& names) {
  names.clear();
  errno = 0;
  const auto close = [](DIR* folder) { closedir(folder); };
  const std::unique_ptr<DIR, decltype(close)> folder(opendir(path), close);
  const dirent* entry = folder ? readdir(folder.get()) : nullptr;
  for (; entry != nullptr; entry = readdir(folder.get())) {
    const std::string_view name = static_cast<const char*>(entry->d_name);
    if (name != "." && name != "..") {
      names.emplace_back(name);
    }
    errno = 0;
  }
  const std::error_code error(errno, std::generic_category());
  std::sort(names.begin(), names.end());
  return error;
}

}  // namespace tavrel
