// A full file name, split into directory, stem and extension and joined again.
// Unlike FileName it splits at both kinds of slash and at the last dot, and keeps three characters
// of the extension. Owns its strings. If memory runs out, operations return false or the empty
// text.
#pragma once

#include <string>

namespace tavrel {

class SplitPath {
 public:
  SplitPath() = default;

  /// Splits `text`. Null leaves all parts empty.
  explicit SplitPath(const char* text);

  /// Replaces the three parts by those of `text`. On failure, and for null, they are unchanged.
  bool parse(const char* text);

  /// Returns directory, stem and extension joined. Valid until the next call or the object's
  /// destruction.
  const char* getFullPath();

  // Not used by the tool; for programs that derive one file name from another.

  /// Returns stem and extension joined. Valid as above.
  const char* getNameWithExtension();

  [[nodiscard]] const char* getStem() const;

  // Each replaces its part by a copy of the text. On failure, and for null, it is unchanged.
  bool setStem(const char* text);
  bool setExtension(const char* text);
  bool setDirectory(const char* text);

 private:
  std::string stem_;
  std::string extension_;  ///< without a dot
  std::string directory_;  ///< with its closing separator
  std::string nameWithExtension_;
  std::string fullPath_;
};

}  // namespace tavrel
