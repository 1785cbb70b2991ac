#include "fuzz/input_parts.h"

#include <algorithm>
#include <cctype>

namespace tavrel::fuzz {

std::string_view cutOff(std::string_view& text, std::string_view mark) {
  const std::string_view front = text.substr(0, text.find(mark));
  text.remove_prefix(std::min(front.size() + mark.size(), text.size()));
  return front;
}

std::string confined(std::string_view text) {
  std::string result(text);
  char before = '\0';
  for (char& character : result) {
    const bool leadsOut = character == '.' || character == '/' || character == '\\';
    if (leadsOut && std::isalnum(static_cast<unsigned char>(before)) == 0) {
      character = '_';
    }
    before = character;
  }
  return result;
}

}  // namespace tavrel::fuzz
