// Bytes of files that a program has read already. While a cache is set, opening one of its files
// for reading reads those bytes instead of the disk, so that whatever reads a file again reads the
// same. It also remembers which file each name has led to. Not used by the tool, where no cache is
// set and opening a file costs one comparison more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <streambuf>
#include <string>
#include <unordered_map>

namespace tavrel {

/// Owns the bytes of files under the paths with which the host opens them (see hostPath). Throws
/// std::bad_alloc if memory runs out, and nothing else.
class FileCache {
 public:
  struct Entry {
    std::unique_ptr<std::uint8_t[]> bytes;
    std::size_t size = 0;
  };

  /// Replaces the entry of `path`, if there is one, which no open file may be using.
  void add(const std::string& path, Entry entry);

  /// Frees the bytes of a file, which must be closed; later it is read from the disk.
  void remove(const std::string& path);

  /// Returns null if there is no entry for `path`.
  [[nodiscard]] const Entry* find(const std::string& path) const;

  /// Returns resolve(name), which is called once for each name.
  std::string remember(const std::string& name, std::string (*resolve)(const std::string& name));

 private:
  std::unordered_map<std::string, Entry> entries_;
  std::unordered_map<std::string, std::string> paths_;
};

/// Sets the cache that all files are looked up in; null for none. Returns the one set before. It
/// must outlive every file opened while it is set.
FileCache* setFileCache(FileCache* cache);

/// Returns resolve(name), which the cache remembers while one is set.
std::string rememberedPath(const std::string& name,
                           std::string (*resolve)(const std::string& name));

/// Returns a stream buffer that reads the cached bytes of `path`, or null if there are none.
std::unique_ptr<std::streambuf> openCachedFile(const std::string& path);

}  // namespace tavrel
