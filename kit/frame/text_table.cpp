#include "kit/frame/text_table.h"

#include <algorithm>

#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

/// No column is wider, so that one long cell can't make every line as long. It is far more than any
/// define that the tool writes.
constexpr std::size_t kWidestColumn = 200;

void appendLine(std::string& text, const std::vector<std::string>& cells,
                const std::vector<Column>& columns, const std::vector<std::size_t>& widths) {
  std::string line;
  for (std::size_t i = 0; i < cells.size(); ++i) {
    const std::size_t width = displayWidth(cells[i]);
    const std::string blanks(width < widths[i] ? widths[i] - width : 0, ' ');
    line += i > 0 ? "  " : "";
    line += columns[i].alignment == Alignment::right ? blanks + cells[i] : cells[i] + blanks;
  }
  line.erase(line.find_last_not_of(' ') + 1);
  text += line + '\n';
}

}  // namespace

std::string TextTable::text() const {
  std::vector<std::string> headings;
  std::vector<std::size_t> widths;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    headings.push_back(columns_[i].heading);
    std::size_t width = displayWidth(headings[i]);
    for (const std::vector<std::string>& row : rows_) {
      width = std::max(width, displayWidth(row[i]));
    }
    widths.push_back(std::min(width, kWidestColumn));
  }
  std::string text;
  appendLine(text, headings, columns_, widths);
  for (const std::vector<std::string>& row : rows_) {
    appendLine(text, row, columns_, widths);
  }
  return text;
}

}  // namespace tavrel::kit
