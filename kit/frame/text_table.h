// Aligned columns of text, with a line of headings.
#pragma once

#include <string>
#include <vector>

namespace tavrel::kit {

enum class Alignment { left, right };

struct Column {
  std::string heading;
  Alignment alignment = Alignment::left;
};

class TextTable {
 public:
  explicit TextTable(std::vector<Column> columns) : columns_(std::move(columns)) {}

  /// Adds a row with one cell, valid UTF-8, for each column.
  void add(std::vector<std::string> cells) { rows_.push_back(std::move(cells)); }

  /// Returns the lines. Blanks at their ends are left out. Columns align unless a cell has more
  /// than 200 characters.
  [[nodiscard]] std::string text() const;

 private:
  std::vector<Column> columns_;
  std::vector<std::vector<std::string>> rows_;
};

}  // namespace tavrel::kit
