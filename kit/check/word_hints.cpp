#include "kit/check/word_hints.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "kit/check/script_keywords.h"
#include "kit/frame/nearest.h"

namespace tavrel::kit {

namespace {

/// An argument of tavrel, which isn't a word of the script, and the option of tavkit that
/// corresponds to it.
struct RunArgument {
  const char* keyword;
  const char* option;
};

constexpr std::array<RunArgument, 3> kRunArguments{
    {{"HeaderPrefix", "--prefix"}, {"bankPath", "--bank-dir"}, {"headerPath", "--header-dir"}}};

}  // namespace

std::string meantKeyword(std::string_view word, const std::vector<std::string>& keywords) {
  return nearest(word.substr(0, word.find('=')), keywords);
}

std::string wordHint(const std::string& word, const std::vector<std::string>& keywords) {
  const auto* argument =
      std::find_if(kRunArguments.begin(), kRunArguments.end(),
                   [&word](const RunArgument& one) { return isKeyword(word, one.keyword); });
  if (argument != kRunArguments.end()) {
    return fmt::format("{} is an argument of tavrel; tavkit has {}", argument->keyword,
                       argument->option);
  }
  const std::string meant = meantKeyword(word, keywords);
  const std::size_t sign = word.find('=');
  if (meant.empty()) {
    return equalsSignHint(word);
  }
  return sign == std::string::npos ? fmt::format("Did you mean {}?", meant)
                                   : fmt::format("Write {} {}", meant, word.substr(sign + 1));
}

std::string equalsSignHint(std::string_view word) {
  return word == "=" ? "Remove the =: a blank separates a keyword from its value" : "";
}

}  // namespace tavrel::kit
