// The text of a script in an editor's terms: lines and columns from 1. Lines end with LF, CRLF or
// CR. A tab is one column, and so is a character of UTF-8, and a byte that isn't part of one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::kit {

/// Returns the line end that a script uses.
std::string lineEndOf(std::string_view text);

struct Position {
  std::size_t line = 1;
  std::size_t column = 1;
};

class SourceText {
 public:
  explicit SourceText(std::string wholeText);

  [[nodiscard]] std::string_view text() const { return text_; }

  /// Returns the place of the character at `offset`, which may be the end of the text.
  [[nodiscard]] Position positionOf(std::size_t offset) const;

  /// Returns a line without its end. Lines count from 1.
  [[nodiscard]] std::string_view line(std::size_t number) const;

  [[nodiscard]] std::size_t lineCount() const { return lineStarts_.size(); }

 private:
  /// A place whose position is known, so that finding one near it needs no look at the whole line.
  struct Mark {
    std::size_t offset = 0;
    Position position;
  };

  std::string text_;
  std::vector<std::size_t> lineStarts_;
  std::vector<Mark> marks_;  ///< each line start, and some places in long lines
};

}  // namespace tavrel::kit
