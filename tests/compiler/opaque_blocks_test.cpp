#include <gtest/gtest.h>

#include <algorithm>

#include "compiler/bank_script.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

using Parser = bool (BankScript::*)(TokenFile&);

/// A block as it stands behind its keyword, with % for the name of a file that is there.
struct Block {
  std::vector<Parser> parsers;
  std::string text;
  bool stored;
  std::string problems;
  std::string nextToken;  // what the block leaves for the top level; empty if nothing
};

std::string unidentified(const std::string& token) {
  return "Script File: \nError: Unidentified token: " + token + " at line: 1\n";
}

void expectBlock(const Block& block, Parser parser, const std::string& fileName) {
  std::string text = block.text;
  if (const std::size_t mark = text.find('%'); mark != std::string::npos) {
    text.replace(mark, 1, fileName);
  }
  auto memory = std::make_unique<std::uint8_t[]>(text.size());
  std::copy(text.begin(), text.end(), memory.get());
  BankScript script("");
  script.useMemory(memory.release(), text.size());
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_EQ((script.*parser)(script), block.stored);
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), block.problems);
  EXPECT_EQ(script.entries.size(), block.stored ? 1 : 0);
  EXPECT_EQ(script.assets.size(), block.stored ? 1 : 0);
  EXPECT_EQ(script.readToken() ? script.token.data() : "", block.nextToken);
  script.freeData();
}

TEST(OpaqueBlocks, AFailedBlockStoresNothingAndLeavesItsTokensToTheTopLevel) {
  const Parser toneBank = &BankScript::parseMidiToneBank;
  const Parser fxOutput = &BankScript::parseFxOutputBank;
  const Parser fxProgram = &BankScript::parseFxProgramBank;
  const Parser user = &BankScript::parseUserAsset;
  const std::vector<Parser> all{toneBank, fxOutput, fxProgram, user};
  const Block blocks[] = {
      {all, "% assetend Next ", true, "", "Next"},
      {all, "", false, "", ""},
      {all, "% ", false, "", ""},
      {all, "% AssetEnd", false, "", ""},
      {all, "none.bin AssetEnd ", false, "", "AssetEnd"},
      {{fxOutput, fxProgram}, "% BankType Drum AssetEnd ", false, "", "Drum"},
      {{toneBank, user}, "% Volume 1 AssetEnd ", false, unidentified("Volume"), "1"},
      {{toneBank}, "% BankType ", false, "", ""},
      {{toneBank}, "% BankType Drum ", false, "", ""},
      {{toneBank},
       "% BankType melodic AssetEnd ",
       false,
       "Bad Argument for BankType token.\n" + unidentified("melodic"),
       "AssetEnd"},
      {{user}, "% Parameter7 ", false, "", ""},
      {{user}, "% Parameter7 1 ", false, "", ""},
      {{user}, "% Parameter8 1 AssetEnd ", false, unidentified("Parameter8"), "1"},
  };
  const TemporaryDirectory folder;
  std::string fileName = folder.write("u.bin", "ten bytes.");
  std::replace(fileName.begin(), fileName.end(), '/', '\\');
  for (const Block& block : blocks) {
    for (const Parser parser : block.parsers) {
      SCOPED_TRACE(block.text + " of parser " +
                   std::to_string(std::find(all.begin(), all.end(), parser) - all.begin()));
      expectBlock(block, parser, fileName);
    }
  }
}

}  // namespace
}  // namespace tavrel::test
