// A full file name taken apart into directory, stem and extension, and put together again.
// Unlike FileName it separates at both slash kinds, takes the last dot, and keeps three characters
// of the extension. Owns its strings; an operation that runs out of memory gives false, or the
// empty text.
#pragma once

#include <string>

namespace tavrel {

class SplitPath {
 public:
  SplitPath() = default;

  /// Takes `text` apart. Null leaves everything empty.
  explicit SplitPath(const char* text);

  /// Replaces `stem`, `extension` and `directory` by the parts of `text`. False, and nothing has
  /// changed: null, or no memory.
  bool parse(const char* text);

  /// Directory, stem and extension joined. Like the texts below, valid until the same operation
  /// runs again or the object ends.
  const char* getFullPath();

  /// Stem and extension joined.
  const char* getNameWithExtension();

  [[nodiscard]] const char* getStem() const;

  // Each replaces its string by a copy of the text. False, and nothing has changed: null, or no
  // memory.
  bool setStem(const char* text);
  bool setExtension(const char* text);
  bool setDirectory(const char* text);

 private:
  std::string stem;
  std::string extension;  ///< without its dot
  std::string directory;  ///< with its closing separator
  std::string nameWithExtension;
  std::string fullPath;
};

}  // namespace tavrel
