// Reads the inputs of a build once: whatever reads them later gets the same bytes.
#pragma once

#include <string>

#include "platform/file_cache.h"

namespace tavrel::kit {

class CachedInputs {
 public:
  CachedInputs() : previous_(setFileCache(&cache_)) {}
  ~CachedInputs() { setFileCache(previous_); }
  CachedInputs(const CachedInputs&) = delete;
  CachedInputs(CachedInputs&&) = delete;
  CachedInputs& operator=(const CachedInputs&) = delete;
  CachedInputs& operator=(CachedInputs&&) = delete;

  /// Reads the file at the host's path `path`. Does nothing if it can't be read whole: it is
  /// missing, a folder or a device, shrinks meanwhile, or has 4 GiB or more. Whoever opens it sees
  /// why.
  void add(const std::string& path);

 private:
  FileCache cache_;
  FileCache* previous_;
};

}  // namespace tavrel::kit
