// Reads a file once for everything that looks at it.
#pragma once

#include <string>

#include "platform/file_cache.h"

namespace tavrel::kit {

/// While it exists, opening its file reads from memory. A file that can't be read, or is too large
/// to be kept, is read from the disk as ever. There may be one object at a time.
class SingleRead {
 public:
  explicit SingleRead(const std::string& path);
  ~SingleRead() { setFileCache(previous_); }
  SingleRead(const SingleRead&) = delete;
  SingleRead(SingleRead&&) = delete;
  SingleRead& operator=(const SingleRead&) = delete;
  SingleRead& operator=(SingleRead&&) = delete;

 private:
  FileCache cache_;
  FileCache* previous_ = nullptr;
};

}  // namespace tavrel::kit
