// Owned zero-terminated texts that may be null and are returned to callers as const char*.
// Allocating one never throws.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <new>
#include <string_view>

namespace tavrel {

using OwnedText = std::unique_ptr<char[]>;

/// Returns a copy of `first` and `second` joined, or null if memory runs out.
inline OwnedText makeText(std::string_view first, std::string_view second = {}) {
  OwnedText text(new (std::nothrow) char[first.size() + second.size() + 1]);
  if (text) {
    char* end = std::copy(first.begin(), first.end(), text.get());
    end = std::copy(second.begin(), second.end(), end);
    *end = '\0';
  }
  return text;
}

/// Returns the text, or the empty text for null. Valid as long as `text` is unchanged.
inline const char* textOrEmpty(const OwnedText& text) { return text ? text.get() : ""; }

}  // namespace tavrel
