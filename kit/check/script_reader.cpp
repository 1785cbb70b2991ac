// Reads a script as the tool does, but goes on after a fault: it skips to the next word whose
// meaning is known.
#include <fmt/format.h>

#include <algorithm>

#include "kit/check/file_kind.h"
#include "kit/check/option_values.h"
#include "kit/check/script_keywords.h"
#include "kit/check/script_model.h"
#include "kit/check/script_words.h"
#include "kit/check/word_hints.h"
#include "kit/frame/nearest.h"

namespace tavrel::kit {

namespace {

/// Returns true for text of 16-bit characters, whose first word is never a keyword for the tool.
bool isUtf16(std::string_view text) {
  return text.starts_with("\xFF\xFE") || text.starts_with("\xFE\xFF");
}

class ScriptReader {
 public:
  ScriptReader(TokenFile& script, Findings& findings)
      : words_(script, findings), findings_(findings) {}

  ScriptModel read();

 private:
  bool reportOtherFile();
  void readStatements();
  std::string unknownStatement();
  void readStatement(const std::string& keyword);
  void readBankName();
  void readBlock(const Statement& statement);
  [[nodiscard]] bool endsFileName(const ScriptBlock& block) const;
  void readFileName(ScriptBlock& block);
  void readOptions(ScriptBlock& block);
  void readOption(ScriptBlock& block, const Option& row);
  void readUnknownOption(ScriptBlock& block);
  void reportMissing(const ScriptWord& keyword, std::string_view what);
  void checkAfterEnd();

  [[nodiscard]] const ScriptWord& word() const { return words_.current(); }

  ScriptWords words_;
  Findings& findings_;
  ScriptModel model_;
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
  if (!words_.hasWord() || beginsStatement(word().text) ||
      start.find('\0') == std::string_view::npos) {
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
                  "End the script with ScriptEnd");
  }
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
  if (isKeyword(keyword, kBankFileName)) {
    readBankName();
  } else if (const Statement* statement = findStatement(keyword)) {
    readBlock(*statement);
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
    reportMissing(keyword, "BankFileName has no name after it");
    model_.bankNames.push_back({"", keyword.offset});
    return;
  }
  model_.bankNames.push_back(word());
  words_.next();
}

void ScriptReader::readBlock(const Statement& statement) {
  ScriptBlock block{.row = &statement, .keyword = word()};
  if (!words_.next() || isNoValue(statement, word().text)) {
    reportMissing(block.keyword, fmt::format("{} has no file name after it", statement.keyword));
  } else {
    readFileName(block);
  }
  readOptions(block);
  if (!block.isFinished && !words_.isCutShort()) {
    findings_.add(
        "unfinished-block", block.keyword.offset,
        fmt::format("{}: the block has no AssetEnd, so the asset is dropped", block.title()),
        "End the block with AssetEnd");
  }
  model_.blocks.push_back(std::move(block));
}

/// Returns true if the current word is no part of the file name. Right after the name a mistyped
/// keyword is seen as one. After a stray word nothing more is reported until a word is known.
bool ScriptReader::endsFileName(const ScriptBlock& block) const {
  return block.strayWord
             ? isNoValue(*block.row, word().text)
             : isOption(word().text) || !nearest(word().text, blockKeywords(*block.row)).empty();
}

/// Reads the file name. Words after it that mean nothing may be the rest of a name that a space or
/// a semicolon has split.
void ScriptReader::readFileName(ScriptBlock& block) {
  block.file = word();
  std::size_t end = word().offset + word().text.size();
  const std::string_view text = words_.text();
  if (end < text.size() && text[end] == ';') {
    end = std::min(text.find_first_of(" \t\r\n", end), text.size());
  }
  while (words_.next() && !endsFileName(block)) {
    if (!block.strayWord) {
      block.strayWord = word();
    }
    end = word().offset + word().text.size();
  }
  block.wholeName = text.substr(block.file->offset, end - block.file->offset);
}

void ScriptReader::readOptions(ScriptBlock& block) {
  while (words_.hasWord() && !block.isFinished && !beginsStatement(word().text)) {
    if (isKeyword(word().text, kAssetEnd)) {
      block.isFinished = true;
      words_.next();
    } else if (const Option* row = findOption(*block.row, word().text)) {
      readOption(block, *row);
    } else {
      readUnknownOption(block);
    }
  }
}

void ScriptReader::readOption(ScriptBlock& block, const Option& row) {
  ScriptOption option{.row = &row, .keyword = word()};
  const bool isRepeated = std::any_of(block.options.begin(), block.options.end(),
                                      [&](const ScriptOption& earlier) {  // but for a mistyped one
                                        return findOption(*block.row, earlier.keyword.text) == &row;
                                      });
  if (isRepeated) {
    findings_.add(
        "repeated-option", word().offset,
        fmt::format("{}: {} appears twice; the last one counts", block.title(), row.keyword),
        "Remove one of them");
  }
  if (!words_.next() || isNoValue(*block.row, word().text)) {
    reportMissing(option.keyword,
                  fmt::format("{}: {} has no value after it", block.title(), row.keyword));
  } else {
    checkValue(block, row, word(), findings_);
    option.value = word();
    words_.next();
  }
  block.options.push_back(std::move(option));
}

/// Reads on after a word that is no option: as the nearest one, if it is mistyped, else up to the
/// next word that is known.
void ScriptReader::readUnknownOption(ScriptBlock& block) {
  const std::vector<std::string> keywords = blockKeywords(*block.row);
  findings_.add(
      "unknown-word", word().offset,
      fmt::format("{}: {} isn't an option of {}", block.title(), word().text, block.row->keyword),
      wordHint(word().text, keywords));
  const std::string meant = meantKeyword(word().text, keywords);
  ScriptOption option{.row = findOption(*block.row, meant), .keyword = word()};
  if (!meant.empty()) {
    words_.readAs(meant);
  }
  if (isKeyword(meant, kAssetEnd) || beginsStatement(meant)) {
    return;  // the caller reads on with it
  }
  while (words_.next() && !isNoValue(*block.row, word().text)) {
    if (!option.value) {
      option.value = word();
    }
  }
  if (option.row != nullptr) {
    block.options.push_back(std::move(option));
  }
}

void ScriptReader::reportMissing(const ScriptWord& keyword, std::string_view what) {
  if (!words_.isCutShort()) {
    findings_.add("missing-value", keyword.offset, std::string(what), "Write the value");
  }
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
