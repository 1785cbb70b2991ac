// Characters of ASCII, in every locale the same.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace tavrel::kit {

inline bool isDigit(char c) { return c >= '0' && c <= '9'; }

inline bool isLetter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }

inline bool isControl(char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }

/// Returns the small letter for a capital, and any other character unchanged.
inline char lowered(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

inline std::string lowered(std::string_view text) {
  std::string result(text);
  std::transform(result.begin(), result.end(), result.begin(), [](char c) { return lowered(c); });
  return result;
}

}  // namespace tavrel::kit
