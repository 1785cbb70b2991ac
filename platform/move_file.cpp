#include "platform/move_file.h"

#ifdef _WIN32

#include <windows.h>

namespace tavrel {

std::error_code moveFile(const std::string& from, const std::string& to, bool replaces) {
  constexpr int kTries = 50;
  constexpr DWORD kPause = 20;  // in milliseconds
  const DWORD flags = replaces ? MOVEFILE_REPLACE_EXISTING : 0;
  DWORD error = ERROR_SUCCESS;
  for (int i = 0; i <= kTries; ++i) {
    if (MoveFileExA(from.c_str(), to.c_str(), flags) != 0) {
      return {};
    }
    error = GetLastError();
    if (error != ERROR_SHARING_VIOLATION && error != ERROR_ACCESS_DENIED) {
      break;
    }
    Sleep(kPause);
  }
  return {static_cast<int>(error), std::system_category()};
}

}  // namespace tavrel

#else

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "platform/last_error.h"

namespace tavrel {

namespace {

bool isThere(const std::string& path) {
  struct stat status {};
  return lstat(path.c_str(), &status) == 0;
}

bool lacksLinks(int error) {
  return error == EPERM || error == ENOSYS || error == EOPNOTSUPP || error == EMLINK;
}

}  // namespace

std::error_code moveFile(const std::string& from, const std::string& to, bool replaces) {
  if (!replaces) {
    // A second name is never given over an existing file; a rename may be.
    if (link(from.c_str(), to.c_str()) == 0) {
      return unlink(from.c_str()) == 0 ? std::error_code() : lastError();
    }
    if (!lacksLinks(errno)) {
      return lastError();
    }
    if (isThere(to)) {
      return std::make_error_code(std::errc::file_exists);
    }
  }
  return std::rename(from.c_str(), to.c_str()) == 0 ? std::error_code() : lastError();
}

}  // namespace tavrel

#endif
