// A file's name and path, with the parts that are derived from them on demand. Owns all its texts.
// A path ends with its separator: nothing is ever put between path and name. Only a backslash
// separates the two; the first dot of a name begins its extension.
// When memory is short an operation gives false or null and leaves 5 in `error`.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "foundation/owned_text.h"

namespace tavrel {

class FileName {
 public:
  /// The value of `error` behind a failed operation; it reads "Unable to Allocate Memory" in the
  /// error table of `DiskFile`.
  static constexpr std::uint32_t kOutOfMemory = 5;

  FileName() = default;
  explicit FileName(const char* newName);
  FileName(const char* newName, const char* newPath);

  /// Frees the five texts and sets them to null.
  void clear();

  /// Replaces `name` by a copy with the margin that `changeExtension` needs. False: no memory, or a
  /// null text; `name` is null then.
  bool setName(const char* text);

  /// Replaces `path` by a copy, neither tested nor completed. False: no memory, or a null text.
  bool setPath(const char* text);

  /// Takes name and path from a full file name, split at its last backslash. False: no memory, or a
  /// null text.
  bool splitNameAndPath(const char* text);

  /// Replaces the extension of a name that `setName` has set; `extension` stands without its dot
  /// and has at most four characters. A dot further than four characters from the end begins no
  /// extension: ".extension" is then added. What doesn't fit leaves the name as it was. Always
  /// true.
  bool changeExtension(const char* extension);

  /// `path` and `name` joined. Null without a name or without memory. Like the results below, valid
  /// until the same operation runs again or the object ends.
  const char* getNameAndPath();

  /// `name` up to its first dot. Null when memory is short.
  const char* getNameOnly();

  /// At most five characters behind the first dot of `name`, or the empty text. Null when memory is
  /// short.
  const char* getExtensionOnly();

  /// Writes the object to standard output for a reader, and waits for one character on standard
  /// input. Always true.
  bool dump() const;

  OwnedText name;
  OwnedText path;
  std::uint32_t error = 0;

 private:
  bool replace(OwnedText& text, std::string_view newText, std::size_t spare);

  OwnedText nameAndPath;
  OwnedText nameOnly;
  OwnedText extensionOnly;
  char noName = '\0';
  std::size_t nameCapacity = 0;  // characters that `name` has room for, its terminator left out
};

}  // namespace tavrel
