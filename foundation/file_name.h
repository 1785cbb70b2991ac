// A file's name and path, and the parts derived from them on demand. Owns all its texts.
// A path ends with its separator: nothing is ever inserted between path and name. Only a backslash
// separates the two; the first dot of a name starts its extension.
// If memory runs out, operations return false or null and set `error` to 5.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "foundation/owned_text.h"

namespace tavrel {

class FileName {
 public:
  /// The value of `error` after a failed operation, a row of the error table of `DiskFile`.
  static constexpr std::uint32_t kOutOfMemory = 5;

  FileName() = default;
  explicit FileName(const char* newName);
  FileName(const char* newName, const char* newPath);

  /// Replaces `name` by a copy with the margin that `changeExtension` needs. Returns false, with a
  /// null `name`, if `text` is null.
  bool setName(const char* text);

  /// Replaces `path` by a copy, neither checked nor completed. Returns false, with a null `path`,
  /// if `text` is null.
  bool setPath(const char* text);

  /// Splits a full file name at its last backslash into path and name. Returns false for null.
  bool splitNameAndPath(const char* text);

  /// Replaces the extension of a name that `setName` has set. `extension` has at most four
  /// characters, without a dot. A dot more than four characters from the end of the name starts no
  /// extension: ".extension" is then appended. Leaves the name alone if there is no room. Always
  /// returns true.
  bool changeExtension(const char* extension);

  /// Returns `path` and `name` joined, or null without a name. Like the results below, valid until
  /// the next call or the object's destruction.
  const char* getNameAndPath();

  /// Returns `name` up to its first dot.
  const char* getNameOnly();

  /// Returns at most five characters after the first dot of `name`, or the empty text.
  const char* getExtensionOnly();

  /// Frees the five texts and sets them to null.
  void clear();

  // Not used by the tool; for debugging.

  /// Prints the object on standard output and waits for one character on standard input. Always
  /// returns true.
  bool dump() const;

  OwnedText name;
  OwnedText path;
  std::uint32_t error = 0;

 private:
  bool replace(OwnedText& text, std::string_view newText, std::string_view margin = {});

  OwnedText nameAndPath_;
  OwnedText nameOnly_;
  OwnedText extensionOnly_;
  char noName_ = '\0';
  std::size_t nameCapacity_ = 0;  // characters that `name` has room for, without its terminator
};

}  // namespace tavrel
