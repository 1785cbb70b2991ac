#include <gtest/gtest.h>

#include "tests/support/expected_run.h"

namespace tavrel::test {
const std::string kName(77, 'n');
const std::string kTooLong = " is too long, only 79 chars allowed\n";

TEST(Run, ThatFailsToParseReportsWhyAndLeavesOldFilesAlone) {
  const std::string oversize(1025, 'x');
  const std::string isOversize =
      "File: a.txt Line #: 1 has an oversize token, only 1024 chars allowed per token\n";
  const struct {
    std::string script, problems;
  } rows[] = {
      {"; BankFileName sfx.tvb \n", ""},
      {"ScriptEnd BankFileName sfx.tvb\n", ""},
      {"BankFileName sfx.tvb\nBankFileName\n", ""},
      {"BankFileName sfx.tvb BankFileName " + oversize + " Foo ", isOversize},
      {"BankFileName sfx.tvb\r\n\r\n; note\r\nAssetEnd;x\r\n", unidentified("AssetEnd", "4")},
      {"UserAsset " + kName + ".bi ", "ERROR: Asset name " + kName + "_bi" + kTooLong}};
  for (const auto& [script, problems] : rows) {
    expectRun({.script = script,
               .problems = problems + "Error: Failed to parse script...\n",
               .failure = ""});
  }
  expectRun({.script = "BankFileName sfx.tvb " + oversize + " Foo ", .problems = isOversize});
}

TEST(Run, FailsWhereAnOutputCannotBeWritten) {
  const std::string header = "Error: Failed to write header...\n";
  const std::string longGuard = "ERROR: Header guard _" + kName + "_H" + kTooLong;
  // Directories have the names of the first bank and the second header.
  const std::string rows[][3] = {{"one", "", "Error: Failed to write bank...\n"},
                                 {"two.x", "Writing Header File: two.h\n", header},
                                 {kName + ".x", "", longGuard + header}};
  for (const auto& [bank, output, problems] : rows) {
    Files files{{bank, std::string(32, '\0')}};
    expectRun({.script = "BankFileName " + bank + ' ',
               .files = bank == "one" ? Files{} : files,
               .problems = problems,
               .failure = "Writing Bank File: " + bank + '\n' + output});
  }
}

TEST(Run, PrintsToBothStreamsInTheOrderOfTheSteps) {
  expectRun({.arguments = "a.txt 2>&1",
             .script = "UserAsset none AssetEnd\n",
             .failure = "Reading Unknown File: none\n" + unidentified("AssetEnd", "1") +
                        "Error: Failed to parse script...\n"});
}

TEST(Run, NamesAllOutputsAfterBankFileName) {
  const std::string longest(76, 'x');
  const struct {
    std::string before, bank, header, base, prefix;
  } rows[] = {{"bankfilename first.x\t", "Boom.bin", "Boom.h", "Boom", "FIRST"},
              {"", "bo.x.y", "bo.x.h", "bo", "BO"},
              {"", R"(one\a~b.tvb)", R"(one\a~b.h)", R"(one\a~b)", R"(ONE\A~B)"},
              {"", longest, longest + ".h", longest, std::string(76, 'X')},
              {"", ".tvb", ".h", "", ""}};
  for (const auto& [before, bank, header, base, prefix] : rows) {
    expectRun({.script = before + "BANKFILENAME " + bank + ";BankFileName x\rscriptend Foo ",
               .base = base,
               .bankName = bank,
               .headerName = header,
               .prefix = prefix});
  }
}

TEST(Run, AppliesKeywordsItemByItem) {
  const std::string longest(80, 'p');
  const ExpectedRun rows[] = {
      {.arguments = "a.txt bankPath no/ BANKPATH one/ bankPath", .bankPath = "one/"},
      {.arguments = "a.txt bankPathx no/ scriptPath one/", .scriptFile = "one/a.txt"},
      {.arguments = "a.txt headerpath two.h/ junk", .headerPath = "two.h/"},
      {.arguments = "a.txt HeaderPrefix " + longest, .prefix = std::string(80, 'P')},
      {.arguments = "a.txt HeaderPrefix x HeaderPrefix x" + longest},
      {.arguments = "bankPath one/", .scriptFile = "bankPath", .bankPath = "one/"},
      // A value is tested only for the keywords after its own, in the order of this row.
      {.arguments = "s bankPath scriptPath headerPath HeaderPrefix x",
       .scriptFile = "headerPaths",
       .bankPath = "scriptPath",
       .headerPath = "HeaderPrefix",
       .prefix = "X"},
      {.arguments = "a.txt bankPath bankPath one/", .bankPath = "bankPath"},
      {.arguments = "a.txt HeaderPrefix bankPath one/", .prefix = "BANKPATH"}};
  for (const ExpectedRun& run : rows) {
    expectRun(run);
  }
}

TEST(Run, PrintsItsUsageWithoutArguments) {
  const std::string rule(79, '-');
  expectRun({.arguments = "",
             .problems = rule + "\nTavrel Audio Packager\nRevision 1.82 7/22/1999 5:36 pm\n" +
                         rule +
                         "\n\nError: Incorrect command line arguments...\n"
                         "Usage: tavrel scriptFileName [bankPath bankOutputPathWithSlashOnEnd] "
                         "[scriptPath scriptPathWithSlashOnEnd] "
                         "[headerPath headerPathWithSlashOnEnd] [HeaderPrefix theHeaderPrefix]\n",
             .failure = ""});
}

}  // namespace tavrel::test
