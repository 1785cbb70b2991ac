// Suggestions for mistyped words.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tavrel::kit {

/// Returns how many characters must be inserted, deleted, replaced or exchanged with their
/// neighbour to turn `first` into `second`, regardless of the case of the letters A to Z. If that
/// is at least `limit`, the result is too, and may be less than the distance.
std::size_t editDistance(std::string_view first, std::string_view second,
                         std::size_t limit = SIZE_MAX);

/// Returns the candidate nearest to `word`, the first of equally near ones. Returns the empty
/// string if none is near enough to be a mistyped `word`.
std::string nearest(std::string_view word, const std::vector<std::string>& candidates);

/// Returns "; did you mean X?" for the nearest candidate, or the empty string.
std::string didYouMean(std::string_view word, const std::vector<std::string>& candidates);

}  // namespace tavrel::kit
