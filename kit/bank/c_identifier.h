// What C takes for a name.
#pragma once

#include <algorithm>
#include <string_view>

#include "kit/frame/ascii.h"

namespace tavrel::kit {

/// Returns true if `text` can be the name of a macro in C: letters A to Z, digits and "_", and no
/// digit first.
inline bool isIdentifier(std::string_view text) {
  const auto isAllowed = [](char c) { return isLetter(c) || c == '_' || isDigit(c); };
  return !text.empty() && !isDigit(text.front()) &&
         std::all_of(text.begin(), text.end(), isAllowed);
}

}  // namespace tavrel::kit
