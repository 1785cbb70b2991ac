// Replacement of files. The new content is written to a temporary file in the same folder, which
// then takes the name of its target: readers see the old file or the new one, and a failure leaves
// the old one. Paths are the host's own (see hostPath). Operations return the error of the host, if
// any; they throw std::bad_alloc if memory runs out, and nothing else.
#pragma once

#include <cstdint>
#include <string>
#include <system_error>

#include "platform/termination.h"

namespace tavrel {

/// What happens to the file that is at the target.
enum class Existing {
  refuse,      ///< `createNew` and `replaceFile` fail, for a link to nothing too
  replace,     ///< replaced; a link itself, not its target
  followLink,  ///< replaced; of a link its target, which need not exist
};

/// A new file that isn't at its target yet. Use: `createNew`, `write` (or a DiskFile on
/// `temporaryPath`), `flushToDisk`, `replaceFile`. Owns the temporary file and deletes it on
/// destruction, and when a signal ends the program (see deleteDoomedFilesOnSignals).
class ReplacementFile {
 public:
  ReplacementFile() = default;
  ~ReplacementFile();
  ReplacementFile(const ReplacementFile&) = delete;
  ReplacementFile& operator=(const ReplacementFile&) = delete;
  ReplacementFile(ReplacementFile&&) = delete;
  ReplacementFile& operator=(ReplacementFile&&) = delete;

  /// Makes an empty temporary file for `target`, with the mode of the file that is there. Fails for
  /// a target that `existing` doesn't allow, for a folder or a device, and with `followLink`, or on
  /// Windows, for a file that may not be written. An object serves one `createNew`.
  std::error_code createNew(const std::string& target, Existing existing);

  /// Appends `count` bytes, unbuffered.
  std::error_code write(const void* source, std::uint64_t count);

  /// Writes what the host still holds in memory to the disk and closes the file. Failures of
  /// earlier writes may be seen only here.
  std::error_code flushToDisk();

  /// Gives the file, after `flushToDisk`, the name of its target. Windows refuses this while a
  /// program has the old file open; it is tried again for a second there.
  std::error_code replaceFile();

  /// Deletes the temporary file, if there is one.
  void discard();

  /// Returns the path of the temporary file, or the empty text if there is none.
  [[nodiscard]] const std::string& temporaryPath() const { return temporaryPath_; }

 private:
  static constexpr int kClosed = -1;

  std::error_code createTemporary(unsigned mode);
  std::error_code createTemporaryLike(unsigned mode);
  std::error_code closeDescriptor();

  std::string target_;
  std::string temporaryPath_;
  DoomedFile temporary_;  // under this path
  Existing existing_ = Existing::refuse;
  int descriptor_ = kClosed;
};

}  // namespace tavrel
