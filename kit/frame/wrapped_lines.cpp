#include "kit/frame/wrapped_lines.h"

namespace tavrel::kit {

std::vector<std::string_view> wrappedLines(std::string_view text, std::size_t width) {
  std::vector<std::string_view> lines;
  while (text.size() > width) {
    std::size_t end = text.rfind(' ', width);
    if (end == std::string_view::npos) {
      end = text.find(' ', width);
    }
    if (end == std::string_view::npos) {
      break;
    }
    lines.push_back(text.substr(0, end));
    text.remove_prefix(end + 1);
  }
  lines.push_back(text);
  return lines;
}

}  // namespace tavrel::kit
