#include "kit/frame/scoped_file_cache.h"

#include <fstream>
#include <utility>

#include "foundation/byte_block.h"
#include "platform/host_path.h"
#include "platform/transfer.h"

namespace tavrel::kit {

void readIntoCache(const std::string& path, FileCache& cache, std::uint32_t mostBytes) {
  if (cache.find(path) != nullptr || pathKind(path.c_str()) != PathKind::file) {
    return;
  }
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  const std::streamoff size = file.tellg();
  if (!file || size < 0 || size > mostBytes) {
    return;
  }
  const auto length = static_cast<std::size_t>(size);
  FileCache::Entry entry{.bytes = ByteBlock(new std::uint8_t[length]), .size = length};
  file.seekg(0);
  if (readBytes(file, entry.bytes.get(), length) == length) {
    cache.add(path, std::move(entry));
  }
}

}  // namespace tavrel::kit
