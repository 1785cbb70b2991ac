#include "kit/check/edited_text.h"

#include <algorithm>

namespace tavrel::kit {

namespace {

/// Sorts edits by their places and removes those that overlap an earlier one.
void removeOverlaps(std::vector<Edit>& edits) {
  std::stable_sort(edits.begin(), edits.end(),
                   [](const Edit& a, const Edit& b) { return a.offset < b.offset; });
  std::size_t end = 0;
  std::erase_if(edits, [&end](const Edit& edit) {
    const bool overlaps = edit.offset < end;
    end = overlaps ? end : edit.offset + edit.length;
    return overlaps;
  });
}

}  // namespace

EditedText::EditedText(std::string text) : before_(std::move(text)), starts_{0} {
  for (std::size_t i = 0; i < before_.size(); ++i) {
    if (before_[i] == '\n') {
      starts_.push_back(i + 1);
    }
  }
}

std::string_view EditedText::before(std::size_t line) const {
  const std::size_t end = line + 1 < starts_.size() ? starts_[line + 1] : before_.size();
  return std::string_view(before_).substr(starts_[line], end - starts_[line]);
}

std::string_view EditedText::after(std::size_t line) const {
  const auto changed = changed_.find(line);
  return changed == changed_.end() ? before(line) : changed->second;
}

std::size_t EditedText::apply(std::vector<Edit> edits) {
  removeOverlaps(edits);
  std::vector<std::size_t> starts;
  std::size_t size = 0;
  for (std::size_t line = 0; line < lineCount(); ++line) {
    starts.push_back(size);
    size += after(line).size();
  }
  // From the last edit on, so that the places of the others stay right.
  std::reverse(edits.begin(), edits.end());
  for (const Edit& edit : edits) {
    const auto next = std::upper_bound(starts.begin(), starts.end(), edit.offset);
    const auto line = static_cast<std::size_t>(next - starts.begin()) - 1;
    replace(line, edit.offset - starts[line], edit);
  }
  return edits.size();
}

/// Applies an edit that begins at `start` of a line.
void EditedText::replace(std::size_t line, std::size_t start, const Edit& edit) {
  const auto changedLine = [this](std::size_t index) -> std::string& {
    return changed_.try_emplace(index, before(index)).first->second;
  };
  std::size_t place = start;
  std::size_t left = edit.length;
  for (std::size_t i = line; left > 0 && i < lineCount(); ++i) {
    std::string& text = changedLine(i);
    const std::size_t count = std::min(left, text.size() - place);
    text.erase(place, count);
    left -= count;
    place = 0;
  }
  changedLine(line).insert(start, edit.replacement);
}

std::string EditedText::text() const {
  std::string text;
  for (std::size_t line = 0; line < lineCount(); ++line) {
    text += after(line);
  }
  return text;
}

}  // namespace tavrel::kit
