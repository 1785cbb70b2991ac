#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/bytes.h"
#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

TEST(BankAndHeader, BlobsStandPaddedBehindTheTable) {
  const std::string boom(1002, 'b');
  const std::string bells(301, '\xFF');
  const std::string ten = "ten bytes.";
  const ExpectedBank bank = ExpectedBank()
                                .asset(6, boom, Pad::to4)
                                .asset(3, bells, Pad::none, {1})
                                .asset(6, ten, Pad::to4);
  // The same bank by its places in the file, so that the builder is right as well.
  const Bytes table = Bytes().le32(3).le32(6).le32(136).le32(1002).fill(8 * 4);
  Bytes places = Bytes(table).le32(3).le32(1140).le32(301).le32(1).fill(7 * 4);
  places.le32(6).le32(1441).le32(10).fill(8 * 4);
  places.text(boom).fill(2).text(bells).text(ten).fill(2).fill(19);
  ASSERT_EQ(places.size(), 1472);
  ASSERT_EQ(bank.bytes(), places.str());
  ASSERT_EQ(bank.dataSize(), 1317);
  ASSERT_EQ(bank.headerSize(), 155);

  const TemporaryDirectory folder;
  folder.write("Boom.bin", boom);
  folder.write("bells.mtb", bells);
  folder.write("ten.bin", ten);
  folder.write("a.txt",
               "BankFileName sfx.tvb\nUserAsset Boom.bin AssetEnd\n"
               "MidiToneBank bells.mtb BankType Melodic AssetEnd\nUserAsset ten.bin AssetEnd\n");
  folder.write("sfx.tvb", std::string(5000, 'o'));
  folder.write("sfx.h", std::string(5000, 'o'));
  expectRun(folder, {.reading = "Reading Unknown File: Boom.bin\nReading MTB File: bells.mtb\n"
                                "Reading Unknown File: ten.bin\n",
                     .writing = "Writing Unknown Data: Boom_bin\nWriting Tone Bank Data: "
                                "bells_mtb\nWriting Unknown Data: ten_bin\n",
                     .bank = bank,
                     .defines = {{"BOOM_BIN", 0}, {"BELLS_MTB", 1}, {"TEN_BIN", 2}}});
}

TEST(BankAndHeader, TheSizesInTheHeaderAddUpToTheBank) {
  const std::string boom(1000, 'b');
  const std::string theme(2000, 't');
  const TemporaryDirectory folder;
  folder.write("boom.wav", boom);
  folder.write("theme.mid", theme);
  folder.write("a.txt",
               "BankFileName sfx.tvb UserAsset boom.wav AssetEnd UserAsset theme.mid AssetEnd\n");
  expectRun(folder, {.reading = "Reading Unknown File: boom.wav\nReading Unknown File: theme.mid\n",
                     .writing = "Writing Unknown Data: boom_wav\nWriting Unknown Data: theme_mid\n",
                     .bank = ExpectedBank().asset(6, boom, Pad::to4).asset(6, theme, Pad::to4),
                     .defines = {{"BOOM_WAV", 0}, {"THEME_MID", 1}}});
  EXPECT_EQ(folder.read("sfx.tvb").size(), 3104);
  const std::string header = folder.read("sfx.h");
  const std::string defines =
      "#ifndef\t_SFX_H\n#define\t_SFX_H\n\n\n"
      "#define\t\tSFX_FILENAME\t\t\"sfx.tvb\"\n"
      "#define\t\tSFX_BANK_DATA_SIZE\t\t3000\n"
      "#define\t\tSFX_BANK_HEADER_SIZE\t\t104\n"
      "#define\t\tSFX_BOOM_WAV\t\t\t0\n"
      "#define\t\tSFX_THEME_MID\t\t\t1\n\n\n"
      "#endif\t//\tend of _SFX_H\n";
  EXPECT_TRUE(header.ends_with(defines)) << header;
}

TEST(BankAndHeader, ABankThatIsFullByItselfGetsNoPadding) {
  const TemporaryDirectory folder;
  folder.write("u.bin", std::string(16, 'u'));
  folder.write("a.txt", "BankFileName sfx.tvb UserAsset u.bin AssetEnd\n");
  expectRun(folder, {.reading = "Reading Unknown File: u.bin\n",
                     .writing = "Writing Unknown Data: u_bin\n",
                     .bank = ExpectedBank().asset(6, std::string(16, 'u'), Pad::to4),
                     .defines = {{"U_BIN", 0}}});
  EXPECT_EQ(folder.read("sfx.tvb").size(), 64);
}

TEST(BankAndHeader, AFileThatCannotBeOpenedEndsTheRun) {
  const std::vector<ExpectedRun> rows{
      {.arguments = {"a.txt", "bankPath", "nowhere/"},
       .bankPath = "nowhere/",
       .outcome = Outcome::bankFails},
      {.outcome = Outcome::bankFails, .bankName = "folder.tvb", .headerName = "folder.h"},
      {.arguments = {"a.txt", "headerPath", "nowhere/"},
       .headerPath = "nowhere/",
       .outcome = Outcome::headerFails},
      {.arguments = {"a.txt", "headerPath", "nowhere/", "bankPath", "folder.tvb/"},
       .bankPath = "folder.tvb/",
       .headerPath = "nowhere/",
       .outcome = Outcome::headerFails},
  };
  for (const ExpectedRun& row : rows) {
    const TemporaryDirectory folder;
    std::filesystem::create_directory(folder.path("folder.tvb"));
    folder.write("a.txt", "BankFileName " + row.bankName + "\n");
    folder.write("sfx.h", "an older header");
    expectRun(folder, row);
  }
}

TEST(BankAndHeader, AGuardThatIsTooLongIsRefusedAheadOfTheHeader) {
  const TemporaryDirectory folder;
  const std::string tooLong(77, 'g');
  folder.write("a.txt", "BankFileName " + tooLong + ".tvb\n");
  folder.write(tooLong + ".h", "an older header");
  const ToolRun run = runTool(folder.path(), {"a.txt"});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.standardOutput, expectedBanner({}) + "Writing Bank File: " + tooLong + ".tvb\n");
  EXPECT_EQ(run.standardError, "ERROR: Header guard _" + tooLong +
                                   "_H is too long, only 79 chars allowed\n"
                                   "Error: Failed to write header...\n");
  EXPECT_EQ(folder.read(tooLong + ".h"), "an older header");
  EXPECT_EQ(folder.read(tooLong + ".tvb"), ExpectedBank().bytes());
}

}  // namespace
}  // namespace tavrel::test
