#include "compiler/bank_script.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {
TEST(BankScript, ABankOf4GiBOrAHeaderWithoutABankIsRefusedAheadOfTheOldOne) {
  const TemporaryDirectory folder;
  BankScript script("a.txt");
  script.bankFileName.setName(folder.write("sfx.tvb", "an older bank").c_str());
  script.headerFileName.setName(folder.write("sfx.h", "an older header").c_str());
  auto asset = std::make_unique<AssetData>();
  asset->paddedSize = 0xFFFFFFFF - 31 - (4 + 44) + 1;  // one more than can be padded to 32
  ASSERT_TRUE(script.storeAsset(std::move(asset), std::make_unique<AssetEntry>()));
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_FALSE(script.writeBank());
  script.bankFileName.setName("no.tvb");
  EXPECT_FALSE(script.writeHeader());
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "ERROR: Bank of 4294967296 bytes is too long, only 4294967295 bytes allowed\n");
  EXPECT_EQ(folder.read("sfx.tvb") + folder.read("sfx.h"), "an older bankan older header");
}

TEST(BankScript, PreferencesAreTakenUpToThePreferencesEnd) {
  const std::string illegal = "Error: Illegal token in pref file tavrel.rsp\nToken: ";
  const std::string rows[][2] = {
      {"bankoutputpath b/ SCRIPTPATH s/\nHeaderPath h/ ;x\nPREFSEND Foo ", "read b/ s/ h/ "},
      {"ScriptPath one ScriptPath PrefsEnd PrefsEnd ", "read  PrefsEnd  "},
      {"foo\nBankOutputPath b/\nPrefsEnd\n", "read b/   " + illegal + "foo Line Number: 1\n"},
      {"HeaderPath h/ ", "failed   h/ "},
      {"HeaderPath h/ BankOutputPath PrefsEnd", "failed   h/ "}};
  for (const auto& [content, expected] : rows) {
    const TemporaryDirectory folder;
    BankScript script("a.txt");
    script.preferencesFileName.setName(folder.write("tool.rsp", content).c_str());
    script.preferencesFileName.setPath("nowhere/");  // only the name counts
    testing::internal::CaptureStderr();
    std::string result = script.readPreferences() ? "read " : "failed ";
    for (const FileName* file : {&script.bankFileName, &script.fileName, &script.headerFileName}) {
      result += std::string(textOrEmpty(file->path)) + ' ';
    }
    EXPECT_EQ(result + testing::internal::GetCapturedStderr(), expected) << content;
  }
}

}  // namespace tavrel::test
