#include <gtest/gtest.h>

#include <filesystem>

#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

TEST(CommandLine, NoArgumentsGiveTheUsageReport) {
  const TemporaryDirectory folder;
  const std::string rule = std::string(79, '-') + "\n";
  const ToolRun run = runTool(folder.path(), {});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.standardOutput, "");
  EXPECT_EQ(run.standardError,
            rule + "Tavrel Audio Packager\nRevision 1.82 7/22/1999 5:36 pm\n" + rule +
                "\nError: Incorrect command line arguments...\n"
                "Usage: tavrel scriptFileName [bankPath bankOutputPathWithSlashOnEnd] [scriptPath "
                "scriptPathWithSlashOnEnd] [headerPath headerPathWithSlashOnEnd] [HeaderPrefix "
                "theHeaderPrefix]\n");
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(CommandLine, KeywordsAreAppliedItemByItem) {
  const std::string longest(80, 'p');
  const struct {
    std::vector<std::string> arguments;
    std::string scriptFile, bankPath, headerPath, prefix;
  } rows[] = {
      {{"a.txt"}, "a.txt", "", "", "SFX"},
      {{"a.txt", "bankPath"}, "a.txt", "", "", "SFX"},
      {{"a.txt", "scriptPath"}, "a.txt", "", "", "SFX"},
      {{"a.txt", "headerPath"}, "a.txt", "", "", "SFX"},
      {{"a.txt", "HeaderPrefix"}, "a.txt", "", "", "SFX"},
      {{"a.txt", "junk", "bankPathx", "one/"}, "a.txt", "", "", "SFX"},
      {{"a.txt", "BANKPATH", "one/", "headerpath", "two/"}, "a.txt", "one/", "two/", "SFX"},
      {{"a.txt", "bankPath", "one/", "bankPath", "two/"}, "a.txt", "two/", "", "SFX"},
      {{"a.txt", "scriptPath", "one/"}, "one/a.txt", "", "", "SFX"},
      {{"a.txt", "bankPath", "one"}, "a.txt", "one", "", "SFX"},
      // A value is tested for the keywords behind its own in the order bankPath, scriptPath,
      // headerPath, HeaderPrefix, and for no other.
      {{"a.txt", "bankPath", "headerPath", "two/"}, "a.txt", "headerPath", "two/", "SFX"},
      {{"a.txt", "bankPath", "scriptPath", "headerPath", "HeaderPrefix", "x"},
       "headerPatha.txt",
       "scriptPath",
       "HeaderPrefix",
       "X"},
      {{"a.txt", "bankPath", "bankPath", "one/"}, "a.txt", "bankPath", "", "SFX"},
      {{"a.txt", "HeaderPrefix", "bankPath", "one/"}, "a.txt", "", "", "BANKPATH"},
      {{"bankPath", "one/"}, "bankPath", "one/", "", "SFX"},
      {{"a.txt", "HeaderPrefix", longest}, "a.txt", "", "", upperCased(longest)},
      {{"a.txt", "HeaderPrefix", "x", "HeaderPrefix", longest + "p"}, "a.txt", "", "", "SFX"},
  };
  for (const auto& row : rows) {
    expectRun({.arguments = row.arguments,
               .scriptFile = row.scriptFile,
               .files = {{"one/", ""}, {"two/", ""}},
               .bankPath = row.bankPath,
               .headerPath = row.headerPath,
               .prefix = row.prefix});
  }
}

TEST(CommandLine, BothStreamsComeInTheOrderOfTheSteps) {
  const TemporaryDirectory folder;
  folder.write("u.bin", "1234");
  folder.write("good",
               "BankFileName sfx.tvb UserAsset u.bin AssetEnd\n" + std::string(1025, 'x') + " ");
  EXPECT_EQ(runToolMerged(folder.path(), {"good"}).standardOutput,
            expectedBanner({.scriptFile = "good"}) +
                "Reading Unknown File: u.bin\n"
                "File: good Line #: 2 has an oversize token, only 1024 chars allowed per token\n"
                "Writing Bank File: sfx.tvb\nWriting Unknown Data: u_bin\n"
                "Writing Header File: sfx.h\nDone!\n");
  folder.write("bad", "UserAsset u.bin Loop\n");
  EXPECT_EQ(runToolMerged(folder.path(), {"bad"}).standardOutput,
            expectedBanner({.scriptFile = "bad"}) +
                "Reading Unknown File: u.bin\n"
                "Script File: bad\nError: Unidentified token: Loop at line: 1\n"
                "Error: Failed to parse script...\n");
}

}  // namespace
}  // namespace tavrel::test
