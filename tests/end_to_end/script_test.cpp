#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

const std::string kTenBytes = "ten bytes.";

std::string unidentified(const std::string& token, int line) {
  return "Script File: a.txt\nError: Unidentified token: " + token +
         " at line: " + std::to_string(line) + "\n";
}

TEST(Script, BrokenOnesSayWhyAndLeaveOldFilesAlone) {
  const std::string reading = "Reading Unknown File: u.bin\n";
  const std::string noEnd = "BankFileName sfx.tvb";
  const std::string bank = noEnd + "\n";
  const std::string longName(76, 'n');
  const struct {
    std::string script, reading, problems;
  } rows[] = {
      {"", "", ""},
      {"; BankFileName sfx.tvb \n", "", ""},
      {"ScriptEnd " + bank, "", ""},
      {"UserAsset u.bin AssetEnd\n", reading, ""},
      {bank + "BankFileName\n", "", ""},
      {noEnd, "", ""},
      // Two line feeds count as one line end, two pairs of carriage return and line feed as two.
      {bank + "\n; note\nFoo;bar\n", "", unidentified("Foo", 3)},
      {noEnd + "\r\n\r\n; note\r\nAssetEnd\r\n", "", unidentified("AssetEnd", 4)},
      {bank + "UserAsset u.bin\nParameter8\n1 AssetEnd\n", reading,
       unidentified("Parameter8", 3) + unidentified("1", 4)},
      {bank + "MidiToneBank u.bin\nBankType DRUM\nAssetEnd\n", "Reading MTB File: u.bin\n",
       "Bad Argument for BankType token.\n" + unidentified("DRUM", 3) +
           unidentified("AssetEnd", 4)},
      {bank + "FxOutputBank u.bin BankType\nDrum AssetEnd\n", "Reading DSP File: u.bin\n",
       unidentified("Drum", 3)},
      {bank + "UserAsset none.bin AssetEnd\n", "Reading Unknown File: none.bin\n",
       unidentified("AssetEnd", 2)},
      {bank + "UserAsset u.bin " + std::string(1025, 'x') + "yz AssetEnd\n", reading,
       "File: a.txt Line #: 2 has an oversize token, only 1024 chars allowed per token\n" +
           unidentified("yz", 2)},
      {bank + "UserAsset " + longName + ".bin AssetEnd\n", "",
       "ERROR: Asset name " + longName + "_bin is too long, only 79 chars allowed\n" +
           unidentified("AssetEnd", 2)},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.script);
    const TemporaryDirectory folder;
    folder.write("a.txt", row.script);
    folder.write("u.bin", kTenBytes);
    folder.write(longName + ".bin", "");
    folder.write("sfx.tvb", "an older bank");
    folder.write("sfx.h", "an older header");
    expectRun(folder,
              {.reading = row.reading, .problems = row.problems, .outcome = Outcome::parseFails});
  }
}

TEST(Script, ItsLayoutOrderAndLettersAreFree) {
  const TemporaryDirectory folder;
  folder.write("u.bin", kTenBytes);
  folder.write("a.txt",
               "useRasset u.bin;a comment\r\nPARAMETER3 7 assetEND\tmiditonebank\r\n\r\n"
               "u.bin bankTYPE Melodic ASSETend bankfilename first.x\n"
               "BANKFILENAME sfx.tvb;BankFileName no.tvb\rscriptend Foo AssetEnd");
  expectRun(folder, {.reading = "Reading Unknown File: u.bin\nReading MTB File: u.bin\n",
                     .writing = "Writing Unknown Data: u_bin\nWriting Tone Bank Data: u_bin\n",
                     .prefix = "FIRST",
                     .bank = ExpectedBank()
                                 .asset(6, kTenBytes, Pad::to4, {0, 0, 0, 7})
                                 .asset(3, kTenBytes, Pad::none, {1}),
                     .defines = {{"U_BIN", 0}, {"U_BIN", 1}}});
  // Cut off inside a block; its last word isn't even delivered.
  folder.write("a.txt", "BankFileName sfx.tvb\nUserAsset u.bin Parameter0 1 AssetEnd");
  expectRun(folder, {.reading = "Reading Unknown File: u.bin\n"});
}

TEST(Script, BankFileNameGivesAllOtherNames) {
  const std::string longest(76, 'x');
  const std::vector<ExpectedRun> rows{
      {.bankName = "Sfx.bin", .headerName = "Sfx.h", .baseName = "Sfx", .prefix = "SFX"},
      {.bankName = "sfx", .headerName = "sfx.h"},
      {.bankName = "bo.x.y", .headerName = "bo.x.h", .baseName = "bo", .prefix = "BO"},
      {.bankName = "boom.sample",
       .headerName = "boom.sample.h",
       .baseName = "boom",
       .prefix = "BOOM"},
      {.bankName = R"(data\a~b.tvb)",
       .headerName = R"(data\a~b.h)",
       .baseName = R"(data\a~b)",
       .prefix = R"(DATA\A~B)"},
      {.bankName = longest,
       .headerName = longest + ".h",
       .baseName = longest,
       .prefix = upperCased(longest)},
  };
  for (const ExpectedRun& row : rows) {
    const TemporaryDirectory folder;
    std::filesystem::create_directory(folder.path("data"));
    folder.write("a.txt", "BankFileName " + row.bankName + "\n");
    expectRun(folder, row);
  }
}

TEST(Script, AssetsAreFoundAndNamedAsWritten) {
  const TemporaryDirectory folder;
  std::filesystem::create_directory(folder.path("snd"));
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
  std::string script = "BankFileName sfx.tvb\n";
  for (const auto& row : rows) {
    folder.write(row.fileOnDisk, row.fileOnDisk);
    script += "UserAsset " + row.file + " AssetEnd\n";
    expected.reading += "Reading Unknown File: " + row.file + "\n";
    expected.writing += "Writing Unknown Data: " + row.name + "\n";
    expected.bank.asset(6, row.fileOnDisk, Pad::to4);
    expected.defines.push_back({row.define, static_cast<int>(expected.defines.size())});
  }
  folder.write("a.txt", script);
  expectRun(folder, expected);
}

}  // namespace
}  // namespace tavrel::test
