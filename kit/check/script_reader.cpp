// Reads a script as the tool does, but goes on after a fault: it skips to the next word whose
// meaning is known.
#include <fmt/format.h>

#include <algorithm>

#include "kit/check/block_reader.h"
#include "kit/check/file_kind.h"
#include "kit/check/script_keywords.h"
#include "kit/check/script_model.h"
#include "kit/check/script_words.h"
#include "kit/check/source_text.h"
#include "kit/check/word_hints.h"

namespace tavrel::kit {

namespace {

/// Returns true for text of 16-bit characters, whose first word is never a keyword for the tool.
bool isUtf16(std::string_view text) {
  return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

constexpr std::string_view kControlsOfText = "\t\n\v\f\r\x1A";

/// Returns true if there are control characters that text doesn't have.
bool isBinary(std::string_view bytes) {
  return std::any_of(bytes.begin(), bytes.end(), [](char c) {
    return static_cast<unsigned char>(c) < ' ' && kControlsOfText.find(c) == std::string_view::npos;
  });
}

class ScriptReader {
 public:
  ScriptReader(TokenFile& script, Findings& findings)
      : words_(script, findings), findings_(findings) {}

  ScriptModel read();

 private:
  bool reportOtherFile();
  void readStatements();
  [[nodiscard]] std::optional<Edit> scriptEndEdit() const;
  std::string unknownStatement();
  void readStatement(const std::string& keyword);
  void readBankName();
  void checkAfterEnd();

  [[nodiscard]] const ScriptWord& word() const { return words_.current(); }

  ScriptWords words_;
  Findings& findings_;
  ScriptModel model_;
  bool isLastWhole_ = false;  ///< the last statement that was read needs nothing more
};

ScriptModel ScriptReader::read() {
  if (isUtf16(words_.text())) {
    findings_.add("byte-order-mark", 0, "the script is UTF-16 text, and tavrel reads single bytes",
                  "Save it as UTF-8 without a byte order mark");
    return {};
  }
  words_.next();
  if (reportOtherFile()) {
    return {};
  }
  readStatements();
  if (model_.bankNames.empty() && !words_.isCutShort()) {
    findings_.add("no-bank-name", 0, "the script doesn't name its bank",
                  "Begin the script with BankFileName and a name");
  }
  return std::move(model_);
}

/// Reports a file that isn't text. tavrel stops at its first word.
bool ScriptReader::reportOtherFile() {
  const std::string_view start = words_.text().substr(0, kKindBytes);
  if (!words_.hasWord() || beginsStatement(word().text) || !isBinary(start)) {
    return false;
  }
  const std::string_view kind = kindOf(start).name;
  findings_.add("unknown-word", word().offset,
                kind.empty() ? "the script isn't text" : fmt::format("the script is {}", kind),
                "Name the file with the statements");
  return true;
}

void ScriptReader::readStatements() {
  while (words_.hasWord()) {
    model_.statementStarts.push_back(word().offset);
    const std::string keyword = beginsStatement(word().text) ? word().text : unknownStatement();
    if (isKeyword(keyword, kScriptEnd)) {
      model_.scriptEnd = model_.statementStarts.back();
      return checkAfterEnd();
    }
    readStatement(keyword);
  }
  if (!model_.statementStarts.empty() && !words_.isCutShort()) {
    findings_.add("no-script-end", word().offset, "the script has no ScriptEnd",
                  "End the script with ScriptEnd", scriptEndEdit());
  }
}

/// Returns the edit that adds ScriptEnd, unless it would become a part of the last statement.
std::optional<Edit> ScriptReader::scriptEndEdit() const {
  if (!isLastWhole_ || words_.isLastUnread()) {
    return std::nullopt;
  }
  const std::string_view text = words_.text();
  const std::string lineEnd = lineEndOf(text);
  const bool endsLine = text.ends_with('\n') || text.ends_with('\r');
  return Edit{text.size(), 0, (endsLine ? "" : lineEnd) + kScriptEnd + lineEnd};
}

/// Reports a word that begins no statement. Returns the keyword that was meant, or nothing.
std::string ScriptReader::unknownStatement() {
  const std::vector<std::string> keywords = statementKeywords();
  findings_.add("unknown-word", word().offset, fmt::format("{} isn't a statement", word().text),
                wordHint(word().text, keywords));
  std::string meant = meantKeyword(word().text, keywords);
  if (!meant.empty()) {
    words_.readAs(meant);
  }
  return meant;
}

/// Reads the statement that the current word begins. Without a keyword it is skipped.
void ScriptReader::readStatement(const std::string& keyword) {
  isLastWhole_ = false;
  if (isKeyword(keyword, kBankFileName)) {
    readBankName();
  } else if (const Statement* statement = findStatement(keyword)) {
    model_.blocks.push_back(BlockReader(words_, findings_, *statement).read());
    isLastWhole_ = model_.blocks.back().isFinished;
  } else {
    while (words_.next() && !beginsStatement(word().text)) {
    }
  }
}

void ScriptReader::readBankName() {
  const ScriptWord keyword = word();
  if (!model_.bankNames.empty()) {
    findings_.add("second-bank-name", keyword.offset, "the bank is named a second time",
                  "Remove one of the names");
  }
  if (!words_.next() || beginsStatement(word().text) || word().text.empty()) {
    words_.reportMissingValue(keyword, "BankFileName has no name after it");
    model_.bankNames.push_back({"", keyword.offset});
    return;
  }
  model_.bankNames.push_back(word());
  isLastWhole_ = true;
  words_.next();
}

/// Reports the first word after ScriptEnd, whatever it is.
void ScriptReader::checkAfterEnd() {
  if (const std::optional<std::size_t> start = words_.skipToNext()) {
    model_.statementStarts.push_back(*start);
    findings_.add("after-end", *start, "what follows ScriptEnd is ignored",
                  "Move the statements before ScriptEnd");
  }
}

}  // namespace

ScriptModel readScript(TokenFile& script, Findings& findings) {
  return ScriptReader(script, findings).read();
}

}  // namespace tavrel::kit
