#include "platform/host_path.h"

#include <sys/stat.h>

#include <algorithm>

#include "platform/file_cache.h"

namespace tavrel {

PathKind pathKind(const char* path) {
  struct stat status {};
  if (stat(path, &status) != 0) {
    return PathKind::missing;
  }
  switch (status.st_mode & S_IFMT) {
    case S_IFREG:
      return PathKind::file;
    case S_IFDIR:
      return PathKind::directory;
    case S_IFIFO:
      return PathKind::pipe;
    default:
      return PathKind::other;
  }
}

#ifdef _WIN32

const char* const kHostSeparators = "/\\:";

std::string hostPath(const char* name) { return name; }

#else

const char* const kHostSeparators = "/";

namespace {

std::string folderOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  return slash == 0 ? "/" : path.substr(0, slash);
}

std::string findPath(const std::string& asWritten) {
  if (pathKind(asWritten.c_str()) != PathKind::missing) {
    return asWritten;
  }
  std::string withSlashes = asWritten;
  std::replace(withSlashes.begin(), withSlashes.end(), '\\', '/');
  const bool folderExists = pathKind(folderOf(withSlashes).c_str()) == PathKind::directory;
  return folderExists ? withSlashes : asWritten;
}

}  // namespace

std::string hostPath(const char* name) {
  std::string asWritten = name;
  return asWritten.find('\\') == std::string::npos ? asWritten
                                                   : rememberedPath(asWritten, findPath);
}

#endif

bool hasDrive(std::string_view path) {
  const bool hostHasDrives = std::string_view(kHostSeparators).find(':') != std::string_view::npos;
  return hostHasDrives && path.size() > 1 && path[1] == ':';
}

}  // namespace tavrel
