// The keywords of the script language as a linter looks them up. Case doesn't count.
#pragma once

#include <string>
#include <vector>

#include "compiler/script_language.h"

namespace tavrel::kit {

bool isKeyword(const std::string& word, const char* keyword);

/// Returns the statement that makes an asset and begins with `word`, or null.
const Statement* findStatement(const std::string& word);

/// Returns the option of a statement, or null.
const Option* findOption(const Statement& statement, const std::string& word);

/// Returns true for an option of any statement.
bool isOption(const std::string& word);

/// Returns true for the keyword of any statement.
bool beginsStatement(const std::string& word);

/// Returns true for a word that is never the value of what precedes it in a block of `statement`:
/// one of its options, AssetEnd, or the start of a statement.
bool isNoValue(const Statement& statement, const std::string& word);

std::vector<std::string> statementKeywords();

/// Returns what may follow in a block: AssetEnd, the options, and the statements.
std::vector<std::string> blockKeywords(const Statement& statement);

}  // namespace tavrel::kit
