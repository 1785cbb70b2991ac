// Numbers in command lines and file names.
#pragma once

#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>

namespace tavrel::kit {

/// Returns the number that `text` is in decimal digits, if it fits. Zeros may come first.
inline std::optional<std::uint32_t> wholeNumber(std::string_view text) {
  std::uint32_t number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  return result.ec == std::errc() && result.ptr == end ? std::optional(number) : std::nullopt;
}

}  // namespace tavrel::kit
