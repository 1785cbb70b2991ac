#include "kit/build/cached_inputs.h"

#include <filesystem>
#include <fstream>

#include "platform/host_path.h"
#include "platform/transfer.h"

namespace tavrel::kit {

void CachedInputs::add(const std::string& path) {
  std::error_code isUnknown;
  const std::uintmax_t size = std::filesystem::file_size(path, isUnknown);
  if (cache_.find(path) != nullptr || pathKind(path.c_str()) != PathKind::file || isUnknown ||
      size > UINT32_MAX) {
    return;
  }
  std::ifstream file(path, std::ios::binary);
  FileCache::Entry entry{.bytes = std::make_unique_for_overwrite<std::uint8_t[]>(size),
                         .size = size};
  if (file && readBytes(file, entry.bytes.get(), size) == size) {
    cache_.add(path, std::move(entry));
  }
}

}  // namespace tavrel::kit
