// The top level of the build script: names the bank and hands each asset block to its parser.
#include <array>

#include "compiler/bank_script.h"
#include "foundation/console.h"

namespace tavrel {

namespace {

struct BlockKeyword {
  const char* keyword;
  bool (BankScript::*parse)(TokenFile&);
};

constexpr std::array<BlockKeyword, 6> kBlocks{{
    {"MidiFileType0", &BankScript::parseMidiFileType0},
    {"WaveFile", &BankScript::parseWaveFile},
    {"MidiToneBank", &BankScript::parseMidiToneBank},
    {"FxOutputBank", &BankScript::parseFxOutputBank},
    {"FxProgramBank", &BankScript::parseFxProgramBank},
    {"UserAsset", &BankScript::parseUserAsset},
}};

}  // namespace

bool reportUnidentifiedToken(const TokenFile& source) {
  printLine(stderr, "Script File: ", textOrEmpty(source.fileName.name));
  printLine(stderr, "Error: Unidentified token: ", source.token.data(),
            " at line: ", source.lineNumber);
  return false;
}

bool BankScript::parseScript() {
  if (!load()) {
    return false;
  }
  bool ok = false;
  while (readToken() && parseStatement(ok)) {
  }
  freeData();
  return ok;
}

/// Reads the statement that the current token opens. False when it is the last one to be read; `ok`
/// is then the outcome of the parse.
bool BankScript::parseStatement(bool& ok) {
  if (isToken("BankFileName")) {
    ok = parseBankFileName();
    return ok;
  }
  for (const BlockKeyword& block : kBlocks) {
    if (isToken(block.keyword)) {
      // A block's result doesn't stop the parse; what a failed block leaves unread does.
      (this->*block.parse)(*this);
      return true;
    }
  }
  if (!isToken("ScriptEnd")) {
    ok = reportUnidentifiedToken(*this);
  }
  return false;
}

bool BankScript::parseBankFileName() {
  if (!readToken()) {
    return false;
  }
  bankFileName.setName(token.data());
  headerFileName.setName(token.data());
  headerFileName.changeExtension("h");
  if (headerPrefix[0] == '\0') {
    setHeaderPrefix(bankFileName.getNameOnly());
  }
  return true;
}

}  // namespace tavrel
