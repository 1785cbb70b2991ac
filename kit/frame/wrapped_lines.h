// Breaks text into lines.
#pragma once

#include <string_view>
#include <vector>

namespace tavrel::kit {

/// Returns `text` in lines of at most `width` characters, without the blanks at which it is broken.
/// A word that is longer gets a line of its own.
std::vector<std::string_view> wrappedLines(std::string_view text, std::size_t width);

}  // namespace tavrel::kit
