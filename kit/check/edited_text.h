// A text under edits. Remembers which of its lines have become what.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "kit/check/diagnostic.h"

namespace tavrel::kit {

class EditedText {
 public:
  explicit EditedText(std::string text);

  /// Applies edits of the text as it is now. One that overlaps an earlier one is left out. Returns
  /// how many have been applied.
  std::size_t apply(std::vector<Edit> edits);

  /// Returns the text as it is now.
  [[nodiscard]] std::string text() const;

  /// Returns the number of lines of the text as it was. The last one has no end, and may be empty.
  [[nodiscard]] std::size_t lineCount() const { return starts_.size(); }

  /// Returns a line as it was, with its end. Lines count from 0.
  [[nodiscard]] std::string_view before(std::size_t line) const;

  /// Returns what has become of a line: nothing, one line or several.
  [[nodiscard]] std::string_view after(std::size_t line) const;

 private:
  void replace(std::size_t line, std::size_t start, const Edit& edit);

  std::string before_;
  std::vector<std::size_t> starts_;             ///< of the lines in `before_`
  std::map<std::size_t, std::string> changed_;  ///< what has become of lines
};

}  // namespace tavrel::kit
