#include "kit/check/script_words.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "compiler/script_language.h"
#include "kit/check/source_text.h"

namespace tavrel::kit {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// Returns the size of all marks at the start of a text, in bytes. Several editors may each have
/// added one.
std::size_t sizeOfByteOrderMarks(std::string_view text) {
  std::size_t size = 0;
  while (text.substr(size).starts_with(kByteOrderMark)) {
    size += kByteOrderMark.size();
  }
  return size;
}

}  // namespace

std::size_t ScriptWords::wordSize(std::size_t start) const {
  const std::string_view rest = text().substr(start);
  return static_cast<std::size_t>(std::find_if(rest.begin(), rest.end(), TokenFile::isDelimiter) -
                                  rest.begin());
}

bool ScriptWords::next() {
  if (!split_.text.empty()) {
    word_ = std::exchange(split_, {});
    return true;
  }
  hasWord_ = end_ == End::none && (script_.readToken() || takeUnreadWord());
  if (!hasWord_) {
    return false;
  }
  word_ = {script_.token.data(), script_.tokenStart(), wordSize(script_.tokenStart())};
  const std::size_t marks = word_.offset == 0 ? sizeOfByteOrderMarks(word_.text) : 0;
  if (marks == 0) {
    return true;
  }
  findings_.add("byte-order-mark", 0, "the script begins with a byte order mark",
                "Save it without a byte order mark", Edit{.length = marks});
  word_ = {word_.text.substr(marks), marks, word_.size - marks};
  return !word_.text.empty() || next();
}

void ScriptWords::readAs(const std::string& keyword) {
  const std::size_t sign = word_.text.find('=');
  if (sign != std::string::npos) {
    split_ = {word_.text.substr(sign + 1), word_.offset + sign + 1, word_.size - sign - 1};
  }
  word_.text = keyword;
}

std::optional<std::size_t> ScriptWords::skipToNext() {
  script_.readToken();
  const std::size_t start = script_.tokenStart();
  return start < text().size() ? std::optional(start) : std::nullopt;
}

/// Judges a word that the tool doesn't read. One without a newline after it is taken all the same.
bool ScriptWords::takeUnreadWord() {
  const std::size_t start = script_.tokenStart();
  const std::string_view rest = text().substr(start);
  if (rest.size() > TokenFile::kLongestToken) {
    end_ = End::atLongWord;
    reportLongWord(start);
  }
  if (rest.empty() || isCutShort()) {
    return false;
  }
  end_ = End::beforeLastWord;
  std::copy(rest.begin(), rest.end(), script_.token.begin());
  script_.token[rest.size()] = '\0';
  if (!script_.isToken(kScriptEnd)) {  // which needs no newline
    findings_.add(
        "last-word", start,
        fmt::format("{} has no newline after it, so tavrel doesn't read it", script_.token.data()),
        "End the last line with a newline", Edit{text().size(), 0, lineEndOf(text())});
  }
  return true;
}

void ScriptWords::reportMissingValue(const ScriptWord& keyword, std::string message) {
  if (!isCutShort()) {
    findings_.add("missing-value", keyword.offset, std::move(message), "Write the value");
  }
}

void ScriptWords::reportLongWord(std::size_t start) {
  findings_.add("long-word", start,
                fmt::format("this word has more than {} characters; tavrel reads no further",
                            TokenFile::kLongestToken));
}

}  // namespace tavrel::kit
