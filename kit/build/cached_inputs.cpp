#include "kit/build/cached_inputs.h"

#include <fstream>

#include "foundation/byte_block.h"
#include "platform/host_path.h"
#include "platform/transfer.h"

namespace tavrel::kit {

void CachedInputs::add(const std::string& path) {
  if (cache_.find(path) != nullptr || pathKind(path.c_str()) != PathKind::file) {
    return;
  }
  std::ifstream file(path, std::ios::binary | std::ios::ate);
  const std::streamoff size = file.tellg();
  if (!file || size < 0 || size > UINT32_MAX) {
    return;
  }
  const auto length = static_cast<std::size_t>(size);
  FileCache::Entry entry{.bytes = ByteBlock(new std::uint8_t[length]), .size = length};
  file.seekg(0);
  if (readBytes(file, entry.bytes.get(), length) == length) {
    cache_.add(path, std::move(entry));
  }
}

}  // namespace tavrel::kit
