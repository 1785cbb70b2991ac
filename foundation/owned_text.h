// Texts that may be null and are handed out as const char*: zero-terminated, owned by a type.
// Making one never throws; without memory it is null.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string_view>

namespace tavrel {

using OwnedText = std::unique_ptr<char[]>;

/// A terminated copy of `first` and `second` joined, with `spare` more bytes behind the
/// terminator. Null when memory is short.
inline OwnedText makeText(std::string_view first, std::string_view second = {},
                          std::size_t spare = 0) {
  OwnedText text(new (std::nothrow) char[first.size() + second.size() + 1 + spare]);
  if (text) {
    char* end = std::copy(first.begin(), first.end(), text.get());
    end = std::copy(second.begin(), second.end(), end);
    *end = '\0';
  }
  return text;
}

/// The text itself, or the empty text for null. Lives as long as `text` is unchanged.
inline const char* textOrEmpty(const OwnedText& text) { return text ? text.get() : ""; }

}  // namespace tavrel
