// A file that is shown, held in memory: each reader reads the same bytes, and a failing disk can't
// look like a damaged file.
#pragma once

#include <cstdint>
#include <string>

#include "kit/check/file_kind.h"
#include "kit/frame/scoped_file_cache.h"

namespace tavrel::kit {

class ShownFile {
 public:
  /// Reads the file. Throws Failure if it can't be read. A file of 4 GiB or more stays on disk.
  explicit ShownFile(const std::string& name);

  /// Lets readers find the file under another name too, until `forget`.
  void alsoName(const std::string& name);
  void forget(const std::string& name);

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] std::uint64_t size() const { return size_; }
  [[nodiscard]] const FileKind& kind() const { return *kind_; }

  /// Returns true if the file is in memory. A reader that can't open it has then run out of memory.
  [[nodiscard]] bool isHeld() const { return isHeld_; }

 private:
  std::string name_;
  std::uint64_t size_ = 0;
  bool isHeld_ = false;
  const FileKind* kind_ = nullptr;
  ScopedFileCache cache_;
};

}  // namespace tavrel::kit
