#include "kit/check/script_keywords.h"

#include <algorithm>

#include "foundation/text_utilities.h"

namespace tavrel::kit {

namespace {

template <typename Rows>
auto findRow(const Rows& rows, const std::string& keyword) -> decltype(&*rows.begin()) {
  const auto row = std::find_if(rows.begin(), rows.end(), [&keyword](const auto& one) {
    return isKeyword(keyword, one.keyword);
  });
  return row == rows.end() ? nullptr : &*row;
}

}  // namespace

bool isKeyword(const std::string& word, const char* keyword) {
  return equalsIgnoringCase(word.c_str(), keyword);
}

const Statement* findStatement(const std::string& word) { return findRow(kStatements, word); }

const Option* findOption(const Statement& statement, const std::string& word) {
  return findRow(statement.options, word);
}

bool isOption(const std::string& word) {
  return std::any_of(kStatements.begin(), kStatements.end(), [&word](const Statement& statement) {
    return findOption(statement, word) != nullptr;
  });
}

bool beginsStatement(const std::string& word) {
  return isKeyword(word, kBankFileName) || isKeyword(word, kScriptEnd) ||
         findStatement(word) != nullptr;
}

bool isNoValue(const Statement& statement, const std::string& word) {
  return isKeyword(word, kAssetEnd) || beginsStatement(word) ||
         findOption(statement, word) != nullptr;
}

std::vector<std::string> statementKeywords() {
  std::vector<std::string> keywords{kBankFileName, kScriptEnd};
  for (const Statement& statement : kStatements) {
    keywords.emplace_back(statement.keyword);
  }
  return keywords;
}

std::vector<std::string> blockKeywords(const Statement& statement) {
  std::vector<std::string> keywords{kAssetEnd};
  for (const Option& option : statement.options) {
    keywords.emplace_back(option.keyword);
  }
  const std::vector<std::string> statements = statementKeywords();
  keywords.insert(keywords.end(), statements.begin(), statements.end());
  return keywords;
}

}  // namespace tavrel::kit
