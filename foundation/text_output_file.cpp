#include "foundation/text_output_file.h"

#include <cstring>
#include <string>

namespace tavrel {

TextOutputFile::TextOutputFile(const char* fullName) : DiskFile(modeWrite, fullName, "") {}

bool TextOutputFile::writeText(const char* text) {
  return isOpen && text != nullptr &&
         writeBytes(text, static_cast<std::uint32_t>(std::strlen(text)));
}

bool TextOutputFile::writeBytes(const void* bytes, std::uint32_t length) {
  return write(bytes, length);
}

bool TextOutputFile::writeNewline() { return writeText("\n"); }

bool TextOutputFile::writeNewlines(std::int16_t count) { return writeRepeated("\n", count); }

bool TextOutputFile::writeLong(std::int32_t value) {
  return writeText(std::to_string(value).c_str());
}

bool TextOutputFile::writeBool(std::uint8_t value) { return writeText(value == 1 ? "1" : "0"); }

bool TextOutputFile::writeTab() { return writeText("\t"); }

bool TextOutputFile::writeTabs(std::int16_t count) { return writeRepeated("\t", count); }

bool TextOutputFile::writeComment(const char* text) {
  return isOpen && writeBytes(&commentChar, 1) && writeText(" ") && writeText(text);
}

bool TextOutputFile::writeRepeated(const char* text, std::int16_t count) {
  for (int written = 0; written < count; ++written) {
    if (!writeText(text)) {
      return false;
    }
  }
  return true;
}

}  // namespace tavrel
