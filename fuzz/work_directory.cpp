#include "fuzz/work_directory.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>

#include "fuzz/require.h"

namespace tavrel::fuzz {

WorkDirectory::WorkDirectory(const std::vector<SmallFile>& files)
    : before_(std::filesystem::current_path()),
      directory_(std::filesystem::temp_directory_path() / "tavrel_fuzz_XXXXXX") {
  require(mkdtemp(directory_.data()) != nullptr);
  std::filesystem::current_path(directory_);
  for (const SmallFile& file : files) {
    write(file.name.c_str(), file.content);
  }
}

WorkDirectory::~WorkDirectory() {
  std::filesystem::current_path(before_);
  std::filesystem::remove_all(directory_);
}

void WorkDirectory::write(const char* name, std::string_view content) {
  const int file = open(name, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  require(file >= 0);
  require(::write(file, content.data(), content.size()) == static_cast<ssize_t>(content.size()));
  close(file);
}

void WorkDirectory::removeFiles() {
  DIR* directory = opendir(".");
  require(directory != nullptr);
  while (const dirent* entry = readdir(directory)) {
    if (entry->d_type == DT_REG) {
      unlink(entry->d_name);
    }
  }
  closedir(directory);
}

}  // namespace tavrel::fuzz
