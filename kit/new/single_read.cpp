#include "kit/new/single_read.h"

#include <utility>

#include "foundation/disk_file.h"

namespace tavrel::kit {

SingleRead::SingleRead(const std::string& path) {
  constexpr std::uint32_t kMostKept = std::uint32_t{1} << 26U;
  DiskFile file(modeRead, path.c_str(), "");
  std::uint32_t size = 0;
  if (file.open() && file.getSize(size) && size <= kMostKept) {
    FileCache::Entry entry{ByteBlock(new std::uint8_t[size]), size};
    if (file.read(entry.bytes.get(), size)) {
      cache_.add(path, std::move(entry));
    }
  }
  file.close();
  previous_ = setFileCache(&cache_);
}

}  // namespace tavrel::kit
