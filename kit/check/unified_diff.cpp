#include "kit/check/unified_diff.h"

#include <fmt/format.h>

#include <algorithm>

#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

constexpr std::size_t kContext = 3;  // lines before and after a change

/// A line of a diff.
struct DiffLine {
  char mark = ' ';  ///< ' ', '-' or '+'
  std::string_view text{};
};

std::vector<std::string_view> linesOf(std::string_view text) {
  std::vector<std::string_view> lines;
  while (!text.empty()) {
    const std::size_t size = std::min(text.find('\n'), text.size() - 1) + 1;
    lines.push_back(text.substr(0, size));
    text.remove_prefix(size);
  }
  return lines;
}

/// Appends what has become of a line. It stays where it still is a line of the new ones.
void appendLine(std::string_view before, std::string_view after, std::vector<DiffLine>& diff) {
  const std::vector<std::string_view> lines = linesOf(after);
  const auto kept = std::find(lines.begin(), lines.end(), before);
  if (kept == lines.end() && !before.empty()) {
    diff.push_back({'-', before});
  }
  for (auto line = lines.begin(); line != lines.end(); ++line) {
    diff.push_back({line == kept ? ' ' : '+', *line});
  }
}

std::string diffLineText(const DiffLine& line) {
  return fmt::format("{}{}{}", line.mark, line.text,
                     line.text.ends_with('\n') ? "" : "\n\\ No newline at end of file\n");
}

/// The lines of a file that a hunk covers.
struct Range {
  std::size_t first = 1;
  std::size_t count = 0;

  /// Returns the range as a hunk's header has it: an empty one is after the line before it.
  [[nodiscard]] std::string text() const {
    return fmt::format("{},{}", count == 0 ? first - 1 : first, count);
  }
};

/// Returns the end of the hunk that begins with the change at `change`: that of the lines after its
/// last change. Another change belongs to it if no line is between their contexts.
std::size_t endOfHunk(const std::vector<DiffLine>& diff, std::size_t change) {
  std::size_t last = change;
  for (std::size_t i = change; i < diff.size() && i - last <= 2 * kContext + 1; ++i) {
    last = diff[i].mark == ' ' ? last : i;
  }
  return std::min(last + kContext + 1, diff.size());
}

/// Appends the lines from `start` to `end` as a hunk. The ranges begin there, and afterwards at the
/// lines after them.
void appendHunk(const std::vector<DiffLine>& diff, std::size_t start, std::size_t end,
                Range& before, Range& after, std::string& hunks) {
  std::string text;
  before.count = after.count = 0;
  for (std::size_t i = start; i < end; ++i) {
    before.count += diff[i].mark == '+' ? 0 : 1;
    after.count += diff[i].mark == '-' ? 0 : 1;
    text += diffLineText(diff[i]);
  }
  hunks += fmt::format("@@ -{} +{} @@\n{}", before.text(), after.text(), text);
  before.first += before.count;
  after.first += after.count;
}

}  // namespace

std::string unifiedDiff(const std::string& path, const EditedText& text) {
  std::vector<DiffLine> diff;
  for (std::size_t line = 0; line < text.lineCount(); ++line) {
    appendLine(text.before(line), text.after(line), diff);
  }
  std::string hunks;
  Range before;
  Range after;
  std::size_t end = 0;  // of the last hunk
  for (std::size_t i = 0; i < diff.size(); ++i) {
    if (diff[i].mark == ' ') {
      continue;
    }
    const std::size_t start = std::max(end, i - std::min(i, kContext));
    before.first += start - end;
    after.first += start - end;
    end = endOfHunk(diff, i);
    appendHunk(diff, start, end, before, after, hunks);
    i = end - 1;
  }
  const std::string name = displayText(path) + (path.find(' ') == std::string::npos ? "" : "\t");
  return hunks.empty() ? "" : fmt::format("--- {0}\n+++ {0}\n{1}", name, hunks);
}

}  // namespace tavrel::kit
