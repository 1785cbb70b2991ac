#include "midi/dump_format.h"

#include <array>
#include <cstdarg>
#include <cstdio>

#include "foundation/console.h"

namespace tavrel {

void formatInto(std::span<char> text, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text.data(), text.size(), format, arguments);
  va_end(arguments);
}

void printPiece(const char* format, ...) {
  std::array<char, 159 + 1> text{};
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text.data(), text.size(), format, arguments);
  va_end(arguments);
  printUnterminated(stdout, text.data());
}

}  // namespace tavrel
