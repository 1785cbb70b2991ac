#include "kit/check/block_reader.h"

#include <fmt/format.h>

#include <algorithm>

#include "kit/check/option_values.h"
#include "kit/check/script_keywords.h"
#include "kit/check/source_text.h"
#include "kit/check/word_hints.h"
#include "kit/frame/nearest.h"

namespace tavrel::kit {

BlockReader::BlockReader(ScriptWords& words, Findings& findings, const Statement& statement)
    : words_(words), findings_(findings), block_{.row = &statement, .keyword = words.current()} {}

ScriptBlock BlockReader::read() {
  if (!words_.next() || isNoValue(*block_.row, word().text)) {
    words_.reportMissingValue(block_.keyword,
                              fmt::format("{} has no file name after it", block_.row->keyword));
  } else {
    readFileName();
  }
  readOptions();
  if (!block_.isFinished && !words_.isCutShort()) {
    findings_.add(
        "unfinished-block", block_.keyword.offset,
        fmt::format("{}: the block has no AssetEnd, so the asset is dropped", block_.title()),
        "End the block with AssetEnd");
  }
  return std::move(block_);
}

/// Returns true if the current word is no part of the file name. Right after the name a mistyped
/// keyword is seen as one. After a stray word nothing more is reported until a word is known.
bool BlockReader::endsFileName() const {
  return block_.strayWord
             ? isNoValue(*block_.row, word().text)
             : isOption(word().text) || !nearest(word().text, blockKeywords(*block_.row)).empty();
}

/// Sets where an option can be added: before the current word, the one after the file name, and on
/// a line of its own if that word begins one.
void BlockReader::placeOptions() {
  constexpr const char* kIndentation = "    ";
  const std::string_view text = words_.text();
  block_.optionPlace = word().offset;
  block_.optionEnd = " ";
  const std::size_t nameEnd = block_.file->offset + block_.file->size;
  const std::string_view gap = text.substr(nameEnd, word().offset - nameEnd);
  const std::size_t lastLine = gap.find_last_of("\r\n") + 1;
  if (lastLine > 0) {
    block_.optionStart = isKeyword(word().text, kAssetEnd) ? kIndentation : "";
    block_.optionEnd = lineEndOf(gap.substr(0, lastLine)) + std::string(gap.substr(lastLine));
  }
}

/// Reads the file name. Words after it that mean nothing may be the rest of a name that a space or
/// a semicolon has split.
void BlockReader::readFileName() {
  block_.file = word();
  std::size_t end = word().offset + word().text.size();
  const std::string_view text = words_.text();
  if (end < text.size() && text[end] == ';') {
    end = std::min(text.find_first_of(" \t\r\n", end), text.size());
  }
  if (words_.next()) {
    placeOptions();
  }
  for (; words_.hasWord() && !endsFileName(); words_.next()) {
    if (!block_.strayWord) {
      block_.strayWord = word();
    }
    end = word().offset + word().text.size();
  }
  block_.wholeName = text.substr(block_.file->offset, end - block_.file->offset);
}

void BlockReader::readOptions() {
  while (words_.hasWord() && !block_.isFinished && !beginsStatement(word().text)) {
    if (isKeyword(word().text, kAssetEnd)) {
      block_.isFinished = true;
      words_.next();
    } else if (const Option* row = findOption(*block_.row, word().text)) {
      readOption(*row);
    } else {
      readUnknownOption();
    }
  }
}

void BlockReader::readOption(const Option& row) {
  ScriptOption option{.row = &row, .keyword = word()};
  if (!spelledOptions_.insert(&row).second) {
    findings_.add(
        "repeated-option", word().offset,
        fmt::format("{}: {} appears twice; the last one counts", block_.title(), row.keyword),
        "Remove one of them");
  }
  if (!words_.next() || isNoValue(*block_.row, word().text)) {
    words_.reportMissingValue(
        option.keyword, fmt::format("{}: {} has no value after it", block_.title(), row.keyword));
  } else {
    checkValue(block_, row, word(), findings_);
    option.value = word();
    words_.next();
  }
  block_.options.push_back(std::move(option));
}

/// Reads on after a word that is no option: as the nearest one, if it is mistyped, else up to the
/// next word that is known.
void BlockReader::readUnknownOption() {
  const std::vector<std::string> keywords = blockKeywords(*block_.row);
  findings_.add(
      "unknown-word", word().offset,
      fmt::format("{}: {} isn't an option of {}", block_.title(), word().text, block_.row->keyword),
      wordHint(word().text, keywords));
  const std::string meant = meantKeyword(word().text, keywords);
  ScriptOption option{.row = findOption(*block_.row, meant), .keyword = word()};
  if (!meant.empty()) {
    words_.readAs(meant);
  }
  if (isKeyword(meant, kAssetEnd) || beginsStatement(meant)) {
    return;  // the caller reads on with it
  }
  while (words_.next() && !isNoValue(*block_.row, word().text)) {
    if (!option.value) {
      option.value = word();
    }
  }
  if (option.row != nullptr) {
    block_.options.push_back(std::move(option));
  }
}

}  // namespace tavrel::kit
