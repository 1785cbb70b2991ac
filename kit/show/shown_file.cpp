#include "kit/show/shown_file.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <limits>
#include <utility>

#include "kit/frame/failure.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

ShownFile::ShownFile(const std::string& name) : name_(name) {
  requireRegularFile(name);
  std::error_code failed;
  size_ = std::filesystem::file_size(hostPath(name.c_str()), failed);
  if (failed) {
    throw Failure(fmt::format("can't read {}: {}", name, failed.message()));
  }
  isHeld_ = size_ <= std::numeric_limits<std::uint32_t>::max();
  if (isHeld_) {
    FileCache::Entry entry = readFileBytes(name);
    size_ = entry.size;
    cache_.add(hostPath(name.c_str()), std::move(entry));
  }
  const FileCache::Entry* held = cache_.find(hostPath(name.c_str()));
  kind_ = held == nullptr ? &kindOfFile(name)
                          : &kindOf({reinterpret_cast<const char*>(held->bytes.get()),
                                     std::min(held->size, kKindBytes)});
}

void ShownFile::alsoName(const std::string& name) {
  if (const FileCache::Entry* held = cache_.find(hostPath(name_.c_str()))) {
    FileCache::Entry copy{.bytes = std::make_unique<std::uint8_t[]>(held->size),
                          .size = held->size};
    std::copy_n(held->bytes.get(), held->size, copy.bytes.get());
    cache_.add(hostPath(name.c_str()), std::move(copy));
  }
}

void ShownFile::forget(const std::string& name) { cache_.remove(hostPath(name.c_str())); }

}  // namespace tavrel::kit
