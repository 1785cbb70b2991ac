// Top level of the build script: names the bank and passes each asset block to its parser.
#include <array>

#include "compiler/bank_script.h"
#include "compiler/names.h"
#include "compiler/script_language.h"
#include "foundation/console.h"

namespace tavrel {

bool failUnidentifiedToken(const TokenFile& source) {
  printLine(stderr, "Script File: ", textOrEmpty(source.fileName.name));
  printLine(stderr, "Error: Unidentified token: ", source.token.data(),
            " at line: ", source.lineNumber);
  return false;
}

BankScript::BlockParser BankScript::findParser() const {
  // The parsers of `kStatements`, in the same order.
  constexpr std::array<BlockParser, 6> kParsers{
      &BankScript::parseMidiFileType0, &BankScript::parseWave,
      &BankScript::parseMidiToneBank,  &BankScript::parseFxOutputBank,
      &BankScript::parseFxProgramBank, &BankScript::parseUserAsset,
  };
  static_assert(kParsers.size() == kStatements.size(), "one parser for each statement");
  for (std::size_t row = 0; row < kStatements.size(); ++row) {
    if (isToken(kStatements[row].keyword)) {
      return kParsers[row];
    }
  }
  return nullptr;
}

bool BankScript::parseScript() {
  if (!load()) {
    return false;
  }
  const bool parsed = parseStatements();
  freeData();
  return parsed;
}

bool BankScript::parseStatements() {
  Step step = Step::next;
  while (step == Step::next && readToken()) {
    step = parseStatement();
  }
  batch_.finish();
  return isBankNamed_ && step != Step::refused;
}

/// Parses the statement that the current token opens.
BankScript::Step BankScript::parseStatement() {
  if (isToken(kBankFileName)) {
    return parseBankFileName();
  }
  if (const BlockParser parser = findParser()) {
    // A failed block doesn't stop the parse; the tokens that it leaves unread usually do.
    hasDroppedBlock_ = !(this->*parser)(*this) || hasDroppedBlock_;
    return Step::next;
  }
  if (isToken(kScriptEnd)) {
    return Step::end;
  }
  failUnidentifiedToken(*this);
  return Step::refused;
}

BankScript::Step BankScript::parseBankFileName() {
  if (!readToken()) {
    return Step::refused;
  }
  bankFileName.setName(token.data());
  nameHeader(headerFileName, token.data());
  if (headerPrefix_[0] == '\0') {
    setHeaderPrefix(bankFileName.getNameOnly());
  }
  isBankNamed_ = true;
  return Step::next;
}

}  // namespace tavrel
