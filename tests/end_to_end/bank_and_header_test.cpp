#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

TEST(BankAndHeader, BlobsStandPaddedBehindTheTable) {
  const std::string boom(1002, 'b');
  const std::string bells(301, '\xFF');
  const std::string ten = "ten bytes.";
  ExpectedRun expected{.files = {{"sfx.tvb", std::string(5000, 'o')}, {"sfx.h", "an older one"}}};
  expected.asset(kUserAsset, "Boom.bin", boom);
  expected.asset(kToneBank, "bells.mtb", bells, "BankType Melodic", {1});
  expected.asset(kUserAsset, "ten.bin", ten);
  // The same bank by its places in the file, so that the builder is right as well.
  Bytes places = Bytes().le32(3).le32(6).le32(136).le32(1002).fill(8 * 4);
  places.le32(3).le32(1140).le32(301).le32(1).fill(7 * 4);
  places.le32(6).le32(1441).le32(10).fill(8 * 4);
  places.text(boom).fill(2).text(bells).text(ten).fill(2).fill(19);
  ASSERT_EQ(places.size(), 1472);
  ASSERT_EQ(expected.bank.bytes(), places.str());
  ASSERT_EQ(expected.bank.dataSize(), 1317);
  ASSERT_EQ(expected.bank.headerSize(), 155);
  expectRun(expected);
}

TEST(BankAndHeader, ABankThatIsFullByItselfGetsNoPadding) {
  ExpectedRun expected;
  expected.asset(kFxOutputBank, "u.bin", std::string(16, 'u'));
  ASSERT_EQ(expected.bank.bytes().size(), 4 + 44 + 16);
  expectRun(expected);
}

TEST(BankAndHeader, TheHeaderNamesTheBankItsSizesAndTheIds) {
  ExpectedRun expected;
  expected.asset(kUserAsset, "boom.wav", std::string(1000, 'b'));
  expected.asset(kUserAsset, "theme.mid", std::string(2000, 't'));
  const TemporaryDirectory folder;
  expectRun(folder, expected);
  EXPECT_TRUE(
      folder.read("sfx.h").ends_with("#ifndef\t_SFX_H\n#define\t_SFX_H\n\n\n"
                                     "#define\t\tSFX_FILENAME\t\t\"sfx.tvb\"\n"
                                     "#define\t\tSFX_BANK_DATA_SIZE\t\t3000\n"
                                     "#define\t\tSFX_BANK_HEADER_SIZE\t\t104\n"
                                     "#define\t\tSFX_BOOM_WAV\t\t\t0\n"
                                     "#define\t\tSFX_THEME_MID\t\t\t1\n\n\n"
                                     "#endif\t//\tend of _SFX_H\n"));
}

TEST(BankAndHeader, AFileThatCannotBeWrittenEndsTheRun) {
  const std::string tooLong(77, 'g');
  const std::string guard =
      "ERROR: Header guard _" + tooLong + "_H is too long, only 79 chars allowed\n";
  const struct {
    std::string base, bankPath, headerPath, problems;
    Outcome outcome;
  } rows[] = {
      {"sfx", "nowhere/", "", "", Outcome::bankFails},
      {"bankFolder", "", "", "", Outcome::bankFails},
      {"sfx", "", "nowhere/", "", Outcome::headerFails},
      {"headerFolder", "", "", "", Outcome::headerFails},
      {tooLong, "", "", guard, Outcome::headerRefused},
  };
  for (const auto& row : rows) {
    expectRun({.arguments = {"a.txt", "bankPath", row.bankPath, "headerPath", row.headerPath},
               .script = "BankFileName " + row.base + ".tvb\n",
               .files = {{"bankFolder.tvb/", ""},
                         {"headerFolder.h/", ""},
                         {"sfx.h", "an older header"},
                         {tooLong + ".h", "an older header"}},
               .bankPath = row.bankPath,
               .headerPath = row.headerPath,
               .problems = row.problems,
               .outcome = row.outcome,
               .baseName = row.base});
  }
}

}  // namespace
}  // namespace tavrel::test
