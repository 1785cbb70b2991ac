// Files that are read once: whatever opens them later gets the same bytes.
#pragma once

#include <cstdint>
#include <string>

#include "platform/file_cache.h"

namespace tavrel::kit {

/// A cache in which all files are looked up while it exists.
class ScopedFileCache : public FileCache {
 public:
  ScopedFileCache() : previous_(setFileCache(this)) {}
  ~ScopedFileCache() { setFileCache(previous_); }
  ScopedFileCache(const ScopedFileCache&) = delete;
  ScopedFileCache(ScopedFileCache&&) = delete;
  ScopedFileCache& operator=(const ScopedFileCache&) = delete;
  ScopedFileCache& operator=(ScopedFileCache&&) = delete;

 private:
  FileCache* previous_;
};

/// Reads the file at the host's path `path` into the cache, unless it is there. Does nothing if it
/// has more than `mostBytes` or can't be read whole: it is missing, a folder or a device, or
/// shrinks meanwhile. Whoever opens it then sees why.
void readIntoCache(const std::string& path, FileCache& cache, std::uint32_t mostBytes = UINT32_MAX);

}  // namespace tavrel::kit
