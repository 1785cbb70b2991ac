// What a word that is no keyword may have meant, for messages.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrel::kit {

/// Returns the keyword that a mistyped word means: the nearest one to what precedes a "=" in it.
/// Returns the empty string if none is near enough.
std::string meantKeyword(std::string_view word, const std::vector<std::string>& keywords);

/// Returns how to correct a word that isn't one of `keywords`, or the empty string.
std::string wordHint(const std::string& word, const std::vector<std::string>& keywords);

/// Returns the hint for a "=" between a keyword and its value, or the empty string for another
/// word.
std::string equalsSignHint(std::string_view word);

}  // namespace tavrel::kit
