#include "kit/check/option_values.h"

#include <fmt/format.h>

#include <algorithm>
#include <limits>

#include "kit/check/loaded_script.h"
#include "kit/check/word_hints.h"
#include "kit/frame/ascii.h"
#include "kit/frame/nearest.h"

namespace tavrel::kit {

namespace {

/// Reads `value` with the tool's own rule.
template <typename Number>
Number readAs(const std::string& value, bool (TokenFile::*read)(Number&)) {
  LoadedScript file(value + '\n');
  Number number = 0;
  (file.*read)(number);
  return number;
}

/// Returns true if a number of decimal digits with an optional sign is outside the given range.
bool isOutside(std::string_view digits, std::int64_t lowest, std::int64_t highest) {
  const bool isNegative = digits.front() == '-';
  digits.remove_prefix(isDigit(digits.front()) ? 0 : 1);
  std::int64_t number = 0;
  for (const char digit : digits) {
    number = std::min<std::int64_t>(number * 10 + (digit - '0'), std::int64_t{1} << 40U);
  }
  number = isNegative ? -number : number;
  return number < lowest || number > highest;
}

void checkNumber(const ScriptBlock& block, const Option& option, const ScriptWord& value,
                 Findings& findings) {
  const std::string_view text = value.text;
  const std::size_t sign = text.starts_with('-') || text.starts_with('+') ? 1 : 0;
  if (text.size() == sign || !std::all_of(text.begin() + sign, text.end(), isDigit)) {
    findings.add("number-text", value.offset,
                 fmt::format("{}: {} {} is read as {}", block.title(), option.keyword, text,
                             readAs(value.text, &TokenFile::readNumber)),
                 text == "=" ? equalsSignHint(text) : "Write decimal digits alone");
    return;
  }
  constexpr std::int64_t kLowest = std::numeric_limits<std::int32_t>::min();
  const std::int64_t highest = block.row->type == typeUserAsset
                                   ? std::numeric_limits<std::uint32_t>::max()
                                   : std::numeric_limits<std::int32_t>::max();
  if (isOutside(text, kLowest, highest)) {
    findings.add(
        "number-range", value.offset,
        fmt::format("{}: {} {} doesn't fit into 32 bits and is stored as {}", block.title(),
                    option.keyword, text, readAs(value.text, &TokenFile::readNumber)),
        fmt::format("Write a number from {} to {}", kLowest, highest));
  }
}

void checkFlag(const ScriptBlock& block, const Option& option, const ScriptWord& value,
               Findings& findings) {
  const std::string& text = value.text;
  if (!text.starts_with('0') && !text.starts_with('1')) {
    findings.add("bad-flag", value.offset,
                 fmt::format("{}: {} {} is neither 0 nor 1, so the asset is dropped", block.title(),
                             option.keyword, text),
                 "Write 0 or 1");
  } else if (text.size() > 1) {
    findings.add(
        "flag-text", value.offset,
        fmt::format("{}: {} {} is read as {}", block.title(), option.keyword, text, text.front()),
        "Write 0 or 1");
  }
}

void checkWord(const ScriptBlock& block, const Option& option, const ScriptWord& value,
               Findings& findings) {
  std::vector<std::string> words;
  for (const Word& word : option.words) {
    if (value.text == word.text) {
      return;
    }
    words.emplace_back(word.text);
  }
  const std::string meant = nearest(value.text, words);
  findings.add("bad-bank-type", value.offset,
               fmt::format("{}: {} {} is none of {}, in exactly this case", block.title(),
                           option.keyword, value.text, fmt::join(words, ", ")),
               meant.empty() ? "" : fmt::format("Did you mean {}?", meant));
}

}  // namespace

void checkValue(const ScriptBlock& block, const Option& option, const ScriptWord& value,
                Findings& findings) {
  switch (option.value) {
    case Value::number:
      return checkNumber(block, option, value, findings);
    case Value::flag:
      return checkFlag(block, option, value, findings);
    case Value::word:
      return checkWord(block, option, value, findings);
  }
}

std::int32_t ScriptBlock::valueOf(const Option& wanted) const {
  const auto last = std::find_if(options.rbegin(), options.rend(), [&wanted](const auto& option) {
    return option.row == &wanted && option.value;
  });
  if (last == options.rend()) {
    return wanted.byDefault;
  }
  const std::string& value = last->value->text;
  if (wanted.value == Value::number) {
    return readAs(value, &TokenFile::readNumber);
  }
  if (wanted.value == Value::flag) {
    return readAs(value, &TokenFile::readFlag);
  }
  for (const Word& word : wanted.words) {
    if (value == word.text) {
      return word.value;
    }
  }
  return wanted.byDefault;
}

}  // namespace tavrel::kit
