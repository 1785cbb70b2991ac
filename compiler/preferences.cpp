// Reads the preferences file, which sets the three directories of the command line.
#include <array>

#include "compiler/bank_script.h"
#include "foundation/console.h"

namespace tavrel {

namespace {

struct PathKeyword {
  const char* keyword;
  FileName BankScript::*file;
};

constexpr std::array<PathKeyword, 3> kPathKeywords{{
    {"BankOutputPath", &BankScript::bankFileName},
    {"ScriptPath", &BankScript::fileName},
    {"HeaderPath", &BankScript::headerFileName},
}};

void reportIllegalToken(const TokenFile& preferences) {
  printLine(stderr, "Error: Illegal token in pref file tavrel.rsp");
  printLine(stderr, "Token: ", preferences.token.data(), " Line Number: ", preferences.lineNumber);
}

}  // namespace

bool BankScript::readPreferences() {
  TokenFile preferences(textOrEmpty(preferencesFileName.name));
  if (!preferences.load()) {
    return false;
  }
  const bool complete = readPreferenceStatements(preferences);
  preferences.freeData();
  return complete;
}

bool BankScript::readPreferenceStatements(TokenFile& preferences) {
  while (preferences.readToken()) {
    if (preferences.isToken("PrefsEnd")) {
      return true;
    }
    if (!readPreference(preferences)) {
      return false;
    }
  }
  return false;
}

/// Reads the statement that the current token opens. Reports and skips an illegal token.
bool BankScript::readPreference(TokenFile& preferences) {
  for (const PathKeyword& row : kPathKeywords) {
    if (preferences.isToken(row.keyword)) {
      return preferences.readToken() && (this->*row.file).setPath(preferences.token.data());
    }
  }
  reportIllegalToken(preferences);
  return true;
}

}  // namespace tavrel
