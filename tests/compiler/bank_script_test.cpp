#include "compiler/bank_script.h"

#include <gmock/gmock.h>

#include "compiler/asset_block.h"
#include "compiler/names.h"
#include "tests/support/midi_builder.h"
#include "tests/support/printed.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// Stores an asset without a payload that claims `size` bytes in the bank.
void storeAsset(BankScript& script, std::uint32_t size) {
  auto asset = std::make_unique<AssetData>();
  asset->paddedSize = size;
  EXPECT_TRUE(script.storeAsset(std::move(asset), std::make_unique<AssetEntry>()));
}

/// Makes a source deliver the tokens of a text, which it borrows.
void use(TokenFile& source, std::string& text) {
  source.useMemory(reinterpret_cast<std::uint8_t*>(text.data()), text.size());
}

TEST(BankScript, RecordsAreZeroBeforeTheyAreFilled) {
  const AssetData data;
  const AssetEntry entry;
  const std::int64_t numbers[] = {data.paddedSize, data.kind,  data.reserved, data.id,
                                  data.compressed, entry.type, entry.offset,  entry.size};
  EXPECT_THAT(numbers, testing::Each(0));
  EXPECT_EQ(data.scriptOffset, 0U);
}

TEST(BankScript, RefusesABankOver4GiBBeforeItOpensTheFile) {
  for (const bool fits : {true, false}) {
    BankScript script("a.txt");
    storeAsset(script, 0xFFFFFFE0 - (4 + 44) + (fits ? 0 : 1));
    script.bankFileName.setName("missing/sfx.tvb");
    const Printed printed = printedBy([&] { EXPECT_FALSE(script.writeBank()); });
    EXPECT_EQ(printed.output, fits ? "Writing Bank File: missing/sfx.tvb\n" : "");
    EXPECT_EQ(
        printed.errors,
        fits ? "" : "ERROR: Bank of 4294967296 bytes is too long, only 4294967295 bytes allowed\n");
  }
}

TEST(BankScript, ParsesAScriptInMemoryAndKeepsIt) {
  BankScript script("none");
  std::string text = "BankFileName my.sfx.tvb\nFoo \n";
  use(script, text);
  script.setFile("a.txt");
  EXPECT_FALSE(script.setHeaderPrefix(nullptr));
  EXPECT_EQ(printedBy([&] { EXPECT_FALSE(script.parseStatements()); }).errors,
            "Script File: a.txt\nError: Unidentified token: Foo at line: 2\n");
  EXPECT_STREQ(script.prefix(), "my");
  script.rewind();
  EXPECT_TRUE(script.readToken()) << "the text is kept";
}

TEST(BankScript, IsLaidOutWithoutWriting) {
  BankScript script("a.txt");
  EXPECT_EQ(script.layOut(), 32) << "the count and 28 zero bytes";
  for (const std::uint32_t size : {5U, 0U, 0xFFFFFFFFU}) {
    storeAsset(script, size);
  }
  EXPECT_EQ(script.layOut(), 0x1000000A0) << "4 + 3 * 44 + 5 + 0xFFFFFFFF and 20 zero bytes";
  EXPECT_EQ(script.entries.at(0)->offset, 4 + 3 * 44);
  EXPECT_EQ(script.entries.at(1)->offset, 4 + 3 * 44 + 5);
  EXPECT_EQ(script.entries.at(2)->offset, 4 + 3 * 44 + 5);
  EXPECT_TRUE(script.setAssetOffset(1, 7));
  EXPECT_EQ(script.entries.at(1)->offset, 7U);
}

TEST(BankScript, ParsesEachBlockFromAnyTokenSource) {
  const TemporaryDirectory directory;
  const std::string samples = Bytes().le16(1000).le16(900).le16(0xFE0C).le16(0);
  const std::string song = midi().track(events().tempo(0, 1).endOfTrack());
  const std::string wave = directory.write("a.wav", wav().fmt(mono, 16, 8000).data(samples));
  const std::string sequence = directory.write("a.mid", song);
  const struct {
    bool (BankScript::*parse)(TokenFile&);
    std::uint32_t kind;
    std::string tokens, payload;
  } rows[] = {{&BankScript::parseWaveFile, 1, wave + " Adpcm 1", "\x77\x1F\x80\x80"},
              {&BankScript::parseMidiFileType0, 2, sequence + " Loop 1", song},
              {&BankScript::parseMidiToneBank, 3, sequence + " BankType Drum", song},
              {&BankScript::parseFxOutputBank, 4, sequence, song},
              {&BankScript::parseFxProgramBank, 4, sequence, song},
              {&BankScript::parseUserAsset, 6, sequence + " Parameter0 1", song}};
  BankScript script("a.txt");
  for (const auto& row : rows) {
    SCOPED_TRACE(row.tokens);
    for (const std::string& rest : {row.tokens + " AssetEnd ", row.tokens + " ", std::string()}) {
      const bool isWhole = rest.ends_with("AssetEnd ");
      std::string text = "\tKeyword " + rest;
      TokenFile source;
      use(source, text);
      EXPECT_TRUE(source.readToken());
      printedBy([&] { EXPECT_EQ((script.*row.parse)(source), isWhole); });
    }
    const AssetData& asset = *script.assets.back();
    const std::uint8_t* bytes = asset.payload.get();
    EXPECT_EQ(std::string(bytes, bytes + script.entries.back()->size), row.payload);
    EXPECT_EQ(asset.kind, row.kind);
    EXPECT_EQ(asset.scriptOffset, 1U) << "of the keyword";
    EXPECT_EQ(asset.compressed, &row == rows);
  }
}

TEST(BankScript, HasRoomFor32768Assets) {
  BankScript script("a.txt");
  for (int i = 0; i < 32768; ++i) {
    storeAsset(script, 0);
  }
  EXPECT_FALSE(script.storeAsset(std::make_unique<AssetData>(), std::make_unique<AssetEntry>()));
  EXPECT_EQ(script.assets.size(), 32768U);
  std::string text = "BankFileName a.b UserAsset e ScriptEnd ";
  use(script, text);
  EXPECT_EQ(printedBy([&] { EXPECT_TRUE(script.parseStatements()); }).errors,
            "ERROR: Asset e_ is one too many, only 32768 assets allowed\n");
}

TEST(BankScript, HoldsTheSizeOfABlobNear4GiB) {
  std::string text = "x ";
  TokenFile source;
  use(source, text);
  BankScript script("a.txt");
  AssetBlock block(script, source, statementOf(typeUserAsset));
  ASSERT_TRUE(block.open());
  if (!block.makePayload(0xFFFFFFFF)) {
    GTEST_SKIP() << "not enough memory";
  }
  ASSERT_TRUE(block.store());
  EXPECT_EQ(script.entries.back()->size, 0xFFFFFFFF);
  EXPECT_EQ(script.assets.back()->paddedSize, 0xFFFFFFFF);
}

TEST(BankScript, ReadsPreferencesUpToPrefsEnd) {
  const TemporaryDirectory directory;
  const std::string name = directory.path("tool.rsp");
  const std::string illegal = "Error: Illegal token in pref file tavrel.rsp\nToken: ";
  const struct {
    std::string text;
    bool isRead;
    std::string paths, problems;  // the paths of bank, script and header
  } rows[] = {
      {"", false, ",,,", "File System Error: File \"" + name + "\" Not Found\n"},
      {"ScriptPath s/ bankoutputpath b/ SCRIPTPATH PrefsEnd\nHeaderPath h/ ;x\nPREFSEND Foo ", true,
       "b/,PrefsEnd,h/,", ""},
      {"x\nBankOutputPath b/\nPrefsEnd\n", true, "b/,,,", illegal + "x Line Number: 1\n"},
      {"HeaderPath h/ ", false, ",,h/,", ""},
      {"HeaderPath h/ BankOutputPath PrefsEnd", false, ",,h/,", ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    BankScript script("a.txt");
    script.preferencesFileName.setName(name.c_str());
    script.preferencesFileName.setPath("nowhere/");  // only the name counts
    if (!row.text.empty()) {
      directory.write("tool.rsp", row.text);
    }
    const Printed printed = printedBy([&] { EXPECT_EQ(script.readPreferences(), row.isRead); });
    EXPECT_EQ(printed.errors, row.problems);
    std::string paths;
    for (const FileName* file : {&script.bankFileName, &script.fileName, &script.headerFileName}) {
      paths += std::string(textOrEmpty(file->path)) + ',';
    }
    EXPECT_EQ(paths, row.paths);
  }
}

TEST(Names, ReplaceLongerOnesUnlessThereIsNoRoom) {
  AssetData::Name name{};
  name.fill('x');
  EXPECT_TRUE(assetName("boom", "wav", name));
  EXPECT_FALSE(assetName(std::string(76, 'n'), "wav", name));
  EXPECT_STREQ(name.data(), "boom_wav");
}

}  // namespace tavrel::test
