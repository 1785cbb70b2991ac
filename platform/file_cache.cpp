#include "platform/file_cache.h"

#include <algorithm>
#include <utility>

namespace tavrel {

namespace {

FileCache* currentCache = nullptr;

/// Reads an entry like a file: a position may be after the end, where reads come short.
class CachedFileBuffer : public std::streambuf {
 public:
  explicit CachedFileBuffer(const FileCache::Entry& entry)
      : start_(reinterpret_cast<char*>(entry.bytes.get())),
        size_(static_cast<off_type>(entry.size)) {
    seekpos(0, std::ios::in);
  }

 protected:
  pos_type seekoff(off_type offset, std::ios::seekdir from, std::ios::openmode mode) override {
    const off_type base = from == std::ios::beg   ? 0
                          : from == std::ios::cur ? gptr() - start_
                                                  : size_;
    return seekpos(base + offset, mode);
  }

  pos_type seekpos(pos_type position, std::ios::openmode /*mode*/) override {
    const off_type offset = position;
    if (offset < 0) {
      return off_type{-1};
    }
    setg(start_, start_ + std::min(offset, size_), start_ + size_);
    return position;
  }

 private:
  char* start_;
  off_type size_;
};

}  // namespace

void FileCache::add(const std::string& path, Entry entry) {
  entries_.insert_or_assign(path, std::move(entry));
}

void FileCache::remove(const std::string& path) { entries_.erase(path); }

const FileCache::Entry* FileCache::find(const std::string& path) const {
  const auto found = entries_.find(path);
  return found != entries_.end() ? &found->second : nullptr;
}

std::string FileCache::remember(const std::string& name,
                                std::string (*resolve)(const std::string& name)) {
  const auto known = paths_.find(name);
  return known != paths_.end() ? known->second : paths_.emplace(name, resolve(name)).first->second;
}

FileCache* setFileCache(FileCache* cache) { return std::exchange(currentCache, cache); }

std::string rememberedPath(const std::string& name,
                           std::string (*resolve)(const std::string& name)) {
  return currentCache != nullptr ? currentCache->remember(name, resolve) : resolve(name);
}

std::unique_ptr<std::streambuf> openCachedFile(const std::string& path) {
  const FileCache::Entry* entry = currentCache != nullptr ? currentCache->find(path) : nullptr;
  return entry != nullptr ? std::make_unique<CachedFileBuffer>(*entry) : nullptr;
}

}  // namespace tavrel
