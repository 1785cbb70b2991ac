#include <gtest/gtest.h>

#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

std::string unidentified(const std::string& token, int line) {
  return "Script File: a.txt\nError: Unidentified token: " + token +
         " at line: " + std::to_string(line) + "\n";
}

TEST(Script, BrokenOnesSayWhyAndLeaveOldFilesAlone) {
  const std::string user = "Reading Unknown File: u.bin\n";
  const std::string tones = "Reading MTB File: u.bin\n";
  const std::string noEnd = "BankFileName sfx.tvb";
  const std::string bank = noEnd + "\n";
  const std::string longName(76, 'n');
  const struct {
    std::string script, reading, problems;
  } rows[] = {
      {"", "", ""},
      {"; BankFileName sfx.tvb \n", "", ""},
      {"ScriptEnd " + bank, "", ""},
      {"UserAsset u.bin AssetEnd\n", user, ""},
      {bank + "BankFileName\n", "", ""},
      {noEnd, "", ""},
      // Two line feeds count as one line end, two pairs of carriage return and line feed as two.
      {bank + "\n; note\nFoo;bar\n", "", unidentified("Foo", 3)},
      {noEnd + "\r\n\r\n; note\r\nAssetEnd\r\n", "", unidentified("AssetEnd", 4)},
      // What a failed block leaves unread fails the top level.
      {bank + "UserAsset u.bin\nParameter8\n1 AssetEnd\n", user,
       unidentified("Parameter8", 3) + unidentified("1", 4)},
      {bank + "MidiToneBank u.bin Volume\nAssetEnd\n", tones,
       unidentified("Volume", 2) + unidentified("AssetEnd", 3)},
      {bank + "MidiToneBank u.bin\nBankType DRUM\nAssetEnd\n", tones,
       "Bad Argument for BankType token.\n" + unidentified("DRUM", 3) +
           unidentified("AssetEnd", 4)},
      {bank + "FxOutputBank u.bin BankType\nDrum AssetEnd\n", "Reading DSP File: u.bin\n",
       unidentified("Drum", 3)},
      {bank + "UserAsset none.bin AssetEnd\n", "Reading Unknown File: none.bin\n",
       unidentified("AssetEnd", 2)},
      {bank + "FxProgramBank folder AssetEnd\n", "Reading DSP File: folder\n",
       unidentified("AssetEnd", 2)},
      {bank + "UserAsset u.bin " + std::string(1025, 'x') + "yz AssetEnd\n", user,
       "File: a.txt Line #: 2 has an oversize token, only 1024 chars allowed per token\n" +
           unidentified("yz", 2)},
      {bank + "UserAsset " + longName + ".bin AssetEnd\n", "",
       "ERROR: Asset name " + longName + "_bin is too long, only 79 chars allowed\n" +
           unidentified("AssetEnd", 2)},
  };
  for (const auto& row : rows) {
    expectRun({.script = row.script,
               .files = {{"u.bin", "ten bytes."},
                         {longName + ".bin", ""},
                         {"folder/", ""},
                         {"sfx.tvb", "an older bank"},
                         {"sfx.h", "an older header"}},
               .reading = row.reading,
               .problems = row.problems,
               .outcome = Outcome::parseFails});
  }
}

TEST(Script, ItsLayoutOrderAndLettersAreFree) {
  ExpectedRun expected;
  expected.asset(kUserAsset, "u.bin", "ten bytes.", "", {0, 0, 0, 7});
  expected.asset(kToneBank, "t.bin", "tones", "", {1});
  expected.prefix = "FIRST";
  expected.script =
      "useRasset u.bin;a comment\r\nPARAMETER3 7 assetEND\tmiditonebank\r\n\r\n"
      "t.bin bankTYPE Melodic ASSETend bankfilename first.x\n"
      "BANKFILENAME sfx.tvb;BankFileName no.tvb\rscriptend Foo AssetEnd";
  expectRun(expected);
}

TEST(Script, ABlockThatIsCutOffLeavesOutItsAssetAndNothingElse) {
  const struct {
    AssetKindRow kind;
    const char* rest;
  } rows[] = {{kUserAsset, " Parameter0 1 AssetEnd"},
              {kUserAsset, " Parameter0 "},
              {kToneBank, " BankType "},
              {kFxOutputBank, " "}};
  for (const auto& row : rows) {
    ExpectedRun expected;
    expected.asset(kUserAsset, "u.bin", "four");
    *expected.script += std::string(row.kind.keyword) + " u.bin" + row.rest;
    expected.reading += std::string(row.kind.reading) + "u.bin\n";
    expectRun(expected);
  }
}

TEST(Script, BankFileNameGivesAllOtherNames) {
  const std::string longest(76, 'x');
  const struct {
    std::string bank, header, base;
  } rows[] = {
      {"Sfx.bin", "Sfx.h", "Sfx"},
      {"sfx", "sfx.h", "sfx"},
      {"bo.x.y", "bo.x.h", "bo"},
      {"boom.sample", "boom.sample.h", "boom"},
      {R"(data\a~b.tvb)", R"(data\a~b.h)", R"(data\a~b)"},
      {longest, longest + ".h", longest},
  };
  for (const auto& row : rows) {
    expectRun({.script = "BankFileName " + row.bank + "\n",
               .files = {{"data/", ""}},
               .baseName = row.base,
               .bankName = row.bank,
               .headerName = row.header});
  }
}

TEST(Script, AssetsAreFoundAndNamedAsWritten) {
  const std::string longest(75, 'L');
  const struct {
    std::string file, fileOnDisk, name, define;
  } rows[] = {
      {R"(snd\boom.bin)", "snd/boom.bin", "boom_bin", "BOOM_BIN"},
      {"snd/boom.bin", "snd/boom.bin", "snd/boom_bin", "SND/BOOM_BIN"},
      {R"(snd\boom.bin)", "snd/boom.bin", "boom_bin", "BOOM_BIN"},
      {"Wah~1.B~n", "Wah~1.B~n", "Wah~1_B~n", "WAH_1_B_N"},
      {"noext", "noext", "noext_", "NOEXT_"},
      {"a-1.b.cdefg", "a-1.b.cdefg", "a-1_b.cde", "A-1_B.CDE"},
      {".bin", ".bin", "_bin", "_BIN"},
      {longest + ".bin", longest + ".bin", longest + "_bin", longest + "_BIN"},
  };
  ExpectedRun expected;
  for (const auto& row : rows) {
    *expected.script += "UserAsset " + row.file + " AssetEnd\n";
    expected.files[row.fileOnDisk] = row.fileOnDisk;
    expected.reading += "Reading Unknown File: " + row.file + "\n";
    expected.writing += "Writing Unknown Data: " + row.name + "\n";
    expected.bank.asset(6, row.fileOnDisk, Pad::to4);
    expected.defines.push_back({row.define, static_cast<int>(expected.defines.size())});
  }
  expectRun(expected);
}

}  // namespace
}  // namespace tavrel::test
