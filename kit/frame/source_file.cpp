#include "kit/frame/source_file.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <new>

#include "foundation/disk_file.h"
#include "kit/frame/failure.h"
#include "platform/host_path.h"

namespace tavrel::kit {

PathKind kindUnder(const std::string& name) { return pathKind(hostPath(name.c_str()).c_str()); }

void requireRegularFile(const std::string& path) {
  switch (kindUnder(path)) {
    case PathKind::file:
      return;
    case PathKind::missing:
      throw Failure(fmt::format("can't read {}: there is no such file", path));
    case PathKind::directory:
      throw Failure(fmt::format("can't read {}: it is a folder", path));
    case PathKind::pipe:
    case PathKind::other:
      throw Failure(fmt::format("can't read {}: it is a pipe or a device", path));
  }
}

void failToRead(const std::string& path) {
  const std::string host = hostPath(path.c_str());
  std::error_code error;
  if (std::filesystem::file_size(host, error) > UINT32_MAX && !error) {
    throw Failure(fmt::format("can't read {}: it has 4 GiB or more", path));
  }
  errno = 0;
  const std::ifstream file(host, std::ios::binary);
  const int reason = file.is_open() || errno == 0 ? EIO : errno;
  throw Failure(fmt::format("can't read {}: {}", path, std::strerror(reason)));
}

FileCache::Entry readFileBytes(const std::string& path) {
  requireRegularFile(path);
  DiskFile file(modeRead, path.c_str(), "");
  FileCache::Entry entry;
  std::uint32_t size = 0;
  switch (file.readImage(entry.bytes, size)) {
    case DiskFile::WholeRead::complete:
      entry.size = size;
      return entry;
    case DiskFile::WholeRead::noMemory:
      throw std::bad_alloc();
    case DiskFile::WholeRead::failed:
      break;
  }
  if (file.error == errorNoMemory) {
    throw std::bad_alloc();
  }
  failToRead(path);
}

std::string readFile(const std::string& path) {
  const FileCache::Entry entry = readFileBytes(path);
  return {reinterpret_cast<const char*>(entry.bytes.get()), entry.size};
}

}  // namespace tavrel::kit
