// Writer of generated text files. A line end is one line feed on every host.
// Writing to a file that isn't open returns false without an error code. Any other failed write
// leaves its code in `error`. A null text returns false.
#pragma once

#include <cstdint>

#include "foundation/disk_file.h"

namespace tavrel {

class TextOutputFile : public DiskFile {
 public:
  /// Names the file; `open` creates it.
  explicit TextOutputFile(const char* fullName);

  /// Writes the text without its terminator.
  bool writeText(const char* text);

  /// As `write` of `DiskFile`, with its error codes.
  bool writeBytes(const void* bytes, std::uint32_t length);

  bool writeNewline();

  /// Writes `count` line ends. A count below 1 writes nothing and returns true.
  bool writeNewlines(std::int16_t count);

  // Not used by the tool; for programs that generate other texts.

  /// Writes the value in decimal.
  bool writeLong(std::int32_t value);

  /// Writes "1" for the value 1 and "0" for any other.
  bool writeBool(std::uint8_t value);

  bool writeTab();

  /// Writes `count` tabs. A count below 1 writes nothing and returns true.
  bool writeTabs(std::int16_t count);

  /// Writes `commentChar`, one blank and the text, without a line end.
  bool writeComment(const char* text);

  char commentChar = ';';

 private:
  bool writeRepeated(const char* text, std::int16_t count);
};

}  // namespace tavrel
