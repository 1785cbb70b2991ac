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
  const std::vector<ExpectedRun> rows{
      {.arguments = {"a.txt"}},
      {.arguments = {"a.txt", "bankPath"}},
      {.arguments = {"a.txt", "scriptPath"}},
      {.arguments = {"a.txt", "headerPath"}},
      {.arguments = {"a.txt", "HeaderPrefix"}},
      {.arguments = {"a.txt", "junk", "bankPathx", "one/"}},
      {.arguments = {"a.txt", "BANKPATH", "one/", "headerpath", "two/"},
       .bankPath = "one/",
       .headerPath = "two/"},
      {.arguments = {"a.txt", "bankPath", "one/", "bankPath", "two/"}, .bankPath = "two/"},
      {.arguments = {"a.txt", "scriptPath", "one/"}, .scriptFile = "one/a.txt"},
      {.arguments = {"a.txt", "bankPath", "one"}, .bankPath = "one"},
      // A value is tested for the keywords behind its own in the order bankPath, scriptPath,
      // headerPath, HeaderPrefix, and for no other.
      {.arguments = {"a.txt", "bankPath", "headerPath", "two/"},
       .bankPath = "headerPath",
       .headerPath = "two/"},
      {.arguments = {"a.txt", "bankPath", "scriptPath", "headerPath", "HeaderPrefix", "x"},
       .scriptFile = "headerPatha.txt",
       .bankPath = "scriptPath",
       .headerPath = "HeaderPrefix",
       .prefix = "X"},
      {.arguments = {"a.txt", "bankPath", "bankPath", "one/"}, .bankPath = "bankPath"},
      {.arguments = {"a.txt", "HeaderPrefix", "bankPath", "one/"}, .prefix = "BANKPATH"},
      {.arguments = {"bankPath", "one/"}, .scriptFile = "bankPath", .bankPath = "one/"},
      {.arguments = {"a.txt", "HeaderPrefix", longest}, .prefix = upperCased(longest)},
      {.arguments = {"a.txt", "HeaderPrefix", "fine", "HeaderPrefix", longest + "p"}},
  };
  for (const ExpectedRun& row : rows) {
    const TemporaryDirectory folder;
    std::filesystem::create_directory(folder.path("one"));
    std::filesystem::create_directory(folder.path("two"));
    folder.write(row.scriptFile, "BankFileName sfx.tvb\n");
    expectRun(folder, row);
  }
}

TEST(CommandLine, BothStreamsComeInTheOrderOfTheSteps) {
  const TemporaryDirectory folder;
  const std::string oversize(1025, 'x');
  folder.write("u.bin", "1234");
  folder.write("good", "BankFileName sfx.tvb UserAsset u.bin AssetEnd\n" + oversize + " ");
  const ToolRun good = runToolMerged(folder.path(), {"good"});
  EXPECT_EQ(good.standardOutput,
            expectedBanner({.scriptFile = "good"}) +
                "Reading Unknown File: u.bin\n"
                "File: good Line #: 2 has an oversize token, only 1024 chars allowed per token\n"
                "Writing Bank File: sfx.tvb\nWriting Unknown Data: u_bin\n"
                "Writing Header File: sfx.h\nDone!\n");
  folder.write("bad", "BankFileName sfx.tvb UserAsset u.bin Loop 1\n");
  const ToolRun bad = runToolMerged(folder.path(), {"bad", "bankPath", "b/"});
  EXPECT_EQ(bad.standardOutput, expectedBanner({.scriptFile = "bad", .bankPath = "b/"}) +
                                    "Reading Unknown File: u.bin\n"
                                    "Script File: bad\nError: Unidentified token: Loop at line: 1\n"
                                    "Script File: bad\nError: Unidentified token: 1 at line: 1\n"
                                    "Error: Failed to parse script...\n");
}

}  // namespace
}  // namespace tavrel::test
