#include "kit/frame/source_file.h"

#include <fmt/format.h>

#include "foundation/disk_file.h"
#include "kit/frame/failure.h"
#include "platform/host_path.h"

namespace tavrel::kit {

void requireRegularFile(const std::string& path) {
  switch (pathKind(hostPath(path.c_str()).c_str())) {
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

std::string readFile(const std::string& path) {
  requireRegularFile(path);
  DiskFile file(modeRead, path.c_str(), "");
  ByteBlock image;
  std::uint32_t size = 0;
  switch (file.readImage(image, size)) {
    case DiskFile::WholeRead::complete:
      return {reinterpret_cast<const char*>(image.get()), size};
    case DiskFile::WholeRead::noMemory:
      throw std::bad_alloc();
    case DiskFile::WholeRead::failed:
      break;
  }
  if (file.error == FileName::kOutOfMemory) {
    throw std::bad_alloc();
  }
  throw Failure(fmt::format("can't read {}", path));
}

}  // namespace tavrel::kit
