#include "compiler/bank_script.h"

#include <gtest/gtest.h>

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(BankScript, ABankOf4GiBOrAHeaderWithoutABankIsRefusedBeforeTheOldOneIsTouched) {
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

TEST(BankScript, TheLongestBankIsNotRefused) {
  BankScript script("a.txt");
  script.bankFileName.setName("missing/folder/sfx.tvb");
  auto asset = std::make_unique<AssetData>();
  asset->paddedSize = 0xFFFFFFE0 - (4 + 44);  // the largest multiple of 32 in 32 bits
  ASSERT_TRUE(script.storeAsset(std::move(asset), std::make_unique<AssetEntry>()));
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_FALSE(script.writeBank()) << "there is no such folder";
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Writing Bank File: missing/folder/sfx.tvb\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(BankScript, IsLaidOutWithoutWriting) {
  BankScript script("a.txt");
  EXPECT_EQ(script.layOut(), 32) << "the count and 28 zero bytes";
  for (const std::uint32_t size : {5U, 0U, 0xFFFFFFFFU}) {
    auto asset = std::make_unique<AssetData>();
    asset->paddedSize = size;
    ASSERT_TRUE(script.storeAsset(std::move(asset), std::make_unique<AssetEntry>()));
  }
  EXPECT_EQ(script.layOut(), 0x1000000A0) << "4 + 3 * 44 + 5 + 0xFFFFFFFF and 20 zero bytes";
  EXPECT_EQ(script.entries.at(0)->offset, 4 + 3 * 44);
  EXPECT_EQ(script.entries.at(1)->offset, 4 + 3 * 44 + 5);
  EXPECT_EQ(script.entries.at(2)->offset, 4 + 3 * 44 + 5);
}

TEST(BankScript, ADirectlyParsedWaveHasItsStream) {
  const TemporaryDirectory folder;
  const std::string samples = Bytes().le16(1000).le16(900).le16(0xFE0C).le16(0).str();
  const std::string name = folder.write("a.wav", wav().fmt(mono, 16, 8000).data(samples));
  BankScript script("a.txt");
  TokenFile block;
  const std::string text = name + " Adpcm 1 AssetEnd ";
  auto* bytes = new std::uint8_t[text.size()];
  std::copy(text.begin(), text.end(), bytes);
  block.useMemory(bytes, text.size());
  testing::internal::CaptureStdout();
  ASSERT_TRUE(script.parseWaveFile(block));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Reading Wave File: " + name + '\n');
  const std::uint8_t* stream = script.assets.at(0)->payload.get();
  EXPECT_EQ(std::string(stream, stream + 4), "\x77\x1F\x80\x80");
  block.freeData();
}

TEST(BankScript, AScriptInMemoryIsParsedAndKept) {
  BankScript script("none");
  const std::string text = "BankFileName my.sfx.tvb\nFoo \n";
  auto* bytes = new std::uint8_t[text.size()];
  std::copy(text.begin(), text.end(), bytes);
  script.useMemory(bytes, text.size());
  script.setFile("a.txt");
  testing::internal::CaptureStderr();
  EXPECT_FALSE(script.parseStatements());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "Script File: a.txt\nError: Unidentified token: Foo at line: 2\n");
  EXPECT_STREQ(script.prefix(), "my");
  script.rewind();
  EXPECT_TRUE(script.readToken()) << "the text is kept";
  script.freeData();
}

TEST(BankScript, AnAssetKnowsItsBlockAndWhetherItIsCompressed) {
  const TemporaryDirectory folder;
  const std::string name = folder.write("a.wav", wav().fmt(mono, 16, 8000).data("1234"));
  const std::string blocks[] = {"BankFileName x ", "WaveFile " + name + " Adpcm 1 AssetEnd ",
                                "\twavefile " + name + " AssetEnd "};
  BankScript script(folder.write("a.txt", blocks[0] + blocks[1] + blocks[2]).c_str());
  testing::internal::CaptureStdout();
  ASSERT_TRUE(script.parseScript());
  testing::internal::GetCapturedStdout();
  EXPECT_EQ(script.assets.at(0)->scriptOffset, blocks[0].size());
  EXPECT_TRUE(script.assets.at(0)->compressed);
  EXPECT_EQ(script.assets.at(1)->scriptOffset, blocks[0].size() + blocks[1].size() + 1);
  EXPECT_FALSE(script.assets.at(1)->compressed);
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
