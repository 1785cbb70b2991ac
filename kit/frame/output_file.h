#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/replace_file.h"

namespace tavrel::kit {

/// A file that appears under its name when it is whole. Operations throw Failure. On destruction
/// an unfinished file is deleted.
class OutputFile {
 public:
  OutputFile(const std::string& path, Existing existing);

  void write(const void* bytes, std::uint64_t count);

  /// Flushes the file to disk, complete, and lets it appear under its name.
  void finish() {
    flush();
    replace();
  }

  // The two halves of `finish`.
  void flush();
  void replace();

  /// Returns the host's path of the file until it appears.
  [[nodiscard]] const std::string& temporaryPath() const { return file_.temporaryPath(); }

 private:
  void check(const std::error_code& error) const;

  std::string path_;
  ReplacementFile file_;
};

/// Writes a whole file. Throws Failure if it can't be written.
void writeFile(const std::string& path, std::string_view content, Existing existing);

}  // namespace tavrel::kit
