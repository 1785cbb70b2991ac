// An input that holds several texts and files: how it is cut, and how its names are kept in the
// work directory.
#pragma once

#include <string>
#include <string_view>

namespace tavrel::fuzz {

constexpr std::string_view kPartEnd = "\n----\n";

/// Removes and returns the text before the first `mark`, or all of it.
std::string_view cutOff(std::string_view& text, std::string_view mark = kPartEnd);

/// Returns the text with a "_" for each dot and separator that isn't after a letter or a digit, so
/// that no name in it leads out of the current directory.
std::string confined(std::string_view text);

}  // namespace tavrel::fuzz
