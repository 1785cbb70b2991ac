#include "kit/check/source_text.h"

#include <algorithm>

#include "kit/frame/display_text.h"

namespace tavrel::kit {

std::string lineEndOf(std::string_view text) {
  const std::string_view first = text.substr(std::min(text.find_first_of("\r\n"), text.size()), 2);
  return first == "\r\n" ? "\r\n" : first.starts_with('\r') ? "\r" : "\n";
}

SourceText::SourceText(std::string wholeText)
    : text_(std::move(wholeText)), lineStarts_{0}, marks_{{0, {}}} {
  constexpr std::size_t kBetweenMarks = 1024;
  Position position;
  for (std::size_t i = 0; i < text_.size();) {
    const char character = text_[i];
    i += characterLength(text().substr(i));
    ++position.column;
    const bool endsLine =
        character == '\n' || (character == '\r' && !text().substr(i).starts_with('\n'));
    if (endsLine) {
      position = {position.line + 1, 1};
      lineStarts_.push_back(i);
    }
    if (endsLine || i - marks_.back().offset >= kBetweenMarks) {
      marks_.push_back({i, position});
    }
  }
}

Position SourceText::positionOf(std::size_t offset) const {
  const auto next =
      std::upper_bound(marks_.begin(), marks_.end(), offset,
                       [](std::size_t wanted, const Mark& mark) { return wanted < mark.offset; });
  const Mark& mark = *(next - 1);
  const std::string_view between = text().substr(mark.offset, offset - mark.offset);
  return {mark.position.line, mark.position.column + displayWidth(between)};
}

std::string_view SourceText::line(std::size_t number) const {
  const std::size_t start = lineStarts_[number - 1];
  const std::size_t end = number < lineStarts_.size() ? lineStarts_[number] : text_.size();
  const std::string_view whole = text().substr(start, end - start);
  return whole.substr(0, whole.find_last_not_of("\r\n") + 1);  // the end, since a line can be long
}

}  // namespace tavrel::kit
