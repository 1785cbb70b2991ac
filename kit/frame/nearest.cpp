#include "kit/frame/nearest.h"

#include <algorithm>
#include <bit>

#include "kit/frame/ascii.h"

namespace tavrel::kit {

namespace {

/// Returns the characters of a word as a set of bits. Different characters may share a bit.
std::uint64_t characterSet(std::string_view word) {
  std::uint64_t set = 0;
  for (const char c : word) {
    set |= std::uint64_t{1} << (static_cast<unsigned char>(lowered(c)) % 64U);
  }
  return set;
}

/// Returns how many characters of one set the other one lacks, for whichever lacks more.
std::size_t unshared(std::uint64_t first, std::uint64_t second) {
  return static_cast<std::size_t>(
      std::max(std::popcount(first & ~second), std::popcount(second & ~first)));
}

std::size_t difference(std::size_t first, std::size_t second) {
  return first > second ? first - second : second - first;
}

/// Words longer than this are too far from everything. It bounds the time that a hostile word
/// takes.
constexpr std::size_t kLongestWord = 256;

}  // namespace

std::size_t editDistance(std::string_view first, std::string_view second, std::size_t limit) {
  const std::string from = lowered(first);
  const std::string to = lowered(second);
  // Rows of the matrix of distances between all starts of both words: two back, one back, current.
  std::vector<std::size_t> beforeLast(to.size() + 1);
  std::vector<std::size_t> last(to.size() + 1);
  std::vector<std::size_t> row(to.size() + 1);
  for (std::size_t j = 0; j <= to.size(); ++j) {
    row[j] = j;
  }
  for (std::size_t i = 1; i <= from.size(); ++i) {
    beforeLast.swap(last);
    last.swap(row);
    row[0] = i;
    for (std::size_t j = 1; j <= to.size(); ++j) {
      const std::size_t replaced = last[j - 1] + (from[i - 1] == to[j - 1] ? 0 : 1);
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, replaced});
      if (i > 1 && j > 1 && from[i - 1] == to[j - 2] && from[i - 2] == to[j - 1]) {
        row[j] = std::min(row[j], beforeLast[j - 2] + 1);
      }
    }
    if (*std::min_element(row.begin(), row.end()) >= limit) {
      return limit;  // no later row has less
    }
  }
  return row[to.size()];
}

std::string nearest(std::string_view word, const std::vector<std::string>& candidates) {
  std::string best;
  if (word.size() > kLongestWord) {
    return best;
  }
  std::size_t limit = std::max<std::size_t>(1, word.size() / 3) + 1;
  const std::uint64_t characters = characterSet(word);
  for (const std::string& candidate : candidates) {
    // A difference in length takes edits, and so does a character that only one of them has.
    if (difference(word.size(), candidate.size()) >= limit ||
        unshared(characters, characterSet(candidate)) >= limit) {
      continue;
    }
    const std::size_t distance = editDistance(word, candidate, limit);
    if (distance < limit) {
      limit = distance;
      best = candidate;
    }
  }
  return best;
}

std::string didYouMean(std::string_view word, const std::vector<std::string>& candidates) {
  const std::string suggestion = nearest(word, candidates);
  return suggestion.empty() ? "" : "; did you mean " + suggestion + "?";
}

}  // namespace tavrel::kit
