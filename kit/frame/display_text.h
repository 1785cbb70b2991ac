// Text as it may be shown on a terminal and put into JSON.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tavrel::kit {

/// Returns `text` with each control character, and each byte that isn't part of valid UTF-8,
/// replaced by U+FFFD.
std::string displayText(std::string_view text);

/// Returns how many bytes the first character of `text`, which isn't empty, takes: 1 for a byte
/// that isn't part of valid UTF-8.
std::size_t characterLength(std::string_view text);

/// Returns how many characters `text` has. A byte that isn't part of valid UTF-8 counts as one.
std::size_t displayWidth(std::string_view text);

/// Returns a number and what is counted: "1 voice", "2 voices".
std::string countText(std::uint64_t count, std::string_view noun);

/// Returns a duration as minutes, seconds and milliseconds: "1:02.500".
std::string durationText(double seconds);

}  // namespace tavrel::kit
