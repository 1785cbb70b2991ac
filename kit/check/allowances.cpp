#include "kit/check/allowances.h"

#include <fmt/format.h>

#include <algorithm>

#include "kit/frame/nearest.h"

namespace tavrel::kit {

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kByteOrderMark = " \t\xEF\xBB\xBF";  // its bytes, and blanks
constexpr std::string_view kBetweenCodes = " \t,";

/// Takes `word` off the start of `rest`, and the blanks before and after it. Returns false, with
/// `rest` unchanged, if it doesn't begin with the word, or goes on with another letter.
bool takeWord(std::string_view& rest, std::string_view word) {
  std::string_view text = rest.substr(std::min(rest.find_first_not_of(kBlanks), rest.size()));
  if (!text.starts_with(word)) {
    return false;
  }
  text.remove_prefix(word.size());
  if (word.back() != ':' && !text.empty() &&
      kBetweenCodes.find(text.front()) == std::string::npos) {
    return false;
  }
  rest = text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
  return true;
}

std::vector<std::string> warningNames() {
  std::vector<std::string> names;
  for (const Code& code : codes()) {
    if (code.severity == Severity::warning) {
      names.emplace_back(code.name);
    }
  }
  return names;
}

}  // namespace

Allowances::Allowances(const SourceText& text, const ScriptModel& model, Findings& findings)
    : text_(text), model_(model) {
  bool hasBegun = false;  // the first block of comments
  bool hasEnded = false;
  for (std::size_t number = 1; number <= text.lineCount(); ++number) {
    const std::string_view line = text.line(number);
    const std::size_t first = line.find_first_not_of(number == 1 ? kByteOrderMark : kBlanks);
    const std::size_t comment = line.find(';');
    const bool isComment = comment != std::string_view::npos && first == comment;
    const bool isBlank = first == std::string_view::npos;
    hasBegun = hasBegun || isComment;
    hasEnded = hasEnded || (!isComment && (hasBegun || !isBlank));
    if (comment != std::string_view::npos) {
      readComment(number, comment, !hasEnded, findings);
    }
  }
}

/// Reads the comment that begins at `offset` of a line.
void Allowances::readComment(std::size_t line, std::size_t offset, bool isFirstBlock,
                             Findings& findings) {
  std::string_view rest = text_.line(line).substr(offset + 1);
  if (!takeWord(rest, "tavkit:") || !takeWord(rest, "allow")) {
    return;
  }
  const auto skipSeparators = [&rest] {
    rest.remove_prefix(std::min(rest.find_first_not_of(kBetweenCodes), rest.size()));
  };
  for (skipSeparators(); !rest.empty(); skipSeparators()) {
    const std::string_view name = rest.substr(0, rest.find_first_of(kBetweenCodes));
    const Code* code = findCode(name);
    if (code == nullptr || code->severity == Severity::error) {
      reportUnknown(name, code, findings);
    } else if (isFirstBlock) {
      everywhere_.emplace(name);
    } else {
      byLine_[line].emplace(name);
    }
    rest.remove_prefix(name.size());
  }
}

/// Reports a name in a comment that can't be allowed. `name` is a view into the script.
void Allowances::reportUnknown(std::string_view name, const Code* code, Findings& findings) const {
  const auto offset = static_cast<std::size_t>(name.data() - text_.text().data());
  if (model_.scriptEnd &&
      text_.positionOf(*model_.scriptEnd).line < text_.positionOf(offset).line) {
    return;
  }
  findings.add("unknown-code", offset,
               fmt::format("{} {}{}", name,
                           code == nullptr ? "isn't a code" : "is an error, which can't be allowed",
                           code == nullptr ? didYouMean(name, warningNames()) : ""),
               "tavkit check --list-codes");
}

void Allowances::allowEverywhere(const std::vector<std::string>& codes) {
  everywhere_.insert(codes.begin(), codes.end());
}

bool Allowances::allow(const Diagnostic& diagnostic) const {
  if (everywhere_.contains(diagnostic.code->name)) {
    return true;
  }
  // The statement in which the problem is: the last one that begins before it or there.
  const auto next = std::upper_bound(model_.statementStarts.begin(), model_.statementStarts.end(),
                                     diagnostic.offset);
  if (next == model_.statementStarts.begin()) {
    return false;
  }
  const auto allowed = byLine_.find(text_.positionOf(*(next - 1)).line);
  return allowed != byLine_.end() && allowed->second.contains(diagnostic.code->name);
}

}  // namespace tavrel::kit
