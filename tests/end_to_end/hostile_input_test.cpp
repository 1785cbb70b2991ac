#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>

#include "tests/support/bytes.h"
#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

const std::string kLongPayload(100000,
                               'u');  // longer than any buffer: a failed write shows at once

TEST(HostileInput, AScriptThatIsNoFileIsNotFound) {
  for (const std::string name : {"none.txt", "folder"}) {
    expectRun({.arguments = {name},
               .scriptFile = name,
               .script = std::nullopt,
               .files = {{"folder/", ""}},
               .problems = "File System Error: File \"" + name + "\" Not Found\n",
               .outcome = Outcome::parseFails});
  }
}

TEST(HostileInput, AsManyAssetsAsIdsAndNoMore) {
  ExpectedRun expected;
  for (int id = 0; id < 32768; ++id) {
    expected.asset(kUserAsset, "e", "");
  }
  expectRun(expected);
  std::replace(expected.script->begin(), expected.script->end(), '\n', ' ');  // all on one line
  *expected.script += "UserAsset e AssetEnd ";
  expected.problems =
      "ERROR: Asset e_ is one too many, only 32768 assets allowed\n"
      "Script File: a.txt\nError: Unidentified token: AssetEnd at line: 1\n";
  expected.outcome = Outcome::parseFails;
  expectRun(expected);
}

TEST(HostileInput, AReadOnlyFolderFailsTheBank) {
  const TemporaryDirectory folder;
  folder.write("a.txt", "BankFileName sfx.tvb\n");
  using std::filesystem::perms;
  std::filesystem::permissions(folder.path(), perms::owner_read | perms::owner_exec);
  const bool binding = !std::ofstream(folder.path("probe"));
  if (binding) {
    expectRun(folder, {.script = std::nullopt, .outcome = Outcome::bankFails});
  }
  std::filesystem::permissions(folder.path(), perms::owner_all);
  if (!binding) {
    GTEST_SKIP() << "permissions don't bind this user";
  }
}

/// What only a POSIX host has: devices, and a shell that closes streams and limits files.
class HostileHost : public testing::Test {
 protected:
  void SetUp() override {
    if (std::filesystem::path::preferred_separator != '/') {
      GTEST_SKIP() << "not on this host";
    }
    expected.asset(kUserAsset, "u.bin", kLongPayload);
    prepareRun(folder, expected);
  }
  TemporaryDirectory folder;
  ExpectedRun expected;
};

TEST_F(HostileHost, DevicesAreNotRead) {
  std::filesystem::create_symlink("/dev/zero", folder.path("zero"));
  expectRun(folder, {.arguments = {"zero"},
                     .scriptFile = "zero",
                     .script = std::nullopt,
                     .problems = "File System Error: Read Error (zero)\n",
                     .outcome = Outcome::parseFails});
  expectRun(folder,
            {.script = "BankFileName sfx.tvb MidiToneBank zero AssetEnd\n",
             .reading = "Reading MTB File: zero\n",
             .problems = "Script File: a.txt\nError: Unidentified token: AssetEnd at line: 1\n",
             .outcome = Outcome::parseFails});
}

TEST_F(HostileHost, AFullDiskFailsThePhaseThatMeetsIt) {
  std::filesystem::create_symlink("/dev/full", folder.path("sfx.h"));
  expected.outcome = Outcome::headerFails;
  expectRun(folder, expected);
  std::filesystem::remove(folder.path("sfx.tvb"));
  std::filesystem::create_symlink("/dev/full", folder.path("sfx.tvb"));
  expected.outcome = Outcome::bankFails;
  expected.writing = "";
  expectRun(folder, expected);
}

TEST_F(HostileHost, AFailedWriteLeavesWhatItWroteInTheOldFilesPlace) {
  folder.write("sfx.tvb", "an older bank");
  folder.write("sfx.h", std::string(5000, 'o'));
  EXPECT_EQ(runTool(folder.path(), {"a.txt"}, {.shellPrefix = "ulimit -f 64;"}).exitCode, 1);
  const std::string left = folder.read("sfx.tvb");
  const Bytes table = Bytes().le32(1).le32(6).le32(0).le32(100000).fill(32);
  EXPECT_EQ(left, Bytes(table).text(kLongPayload).str().substr(0, left.size()));
  EXPECT_GT(left.size(), table.size());

  folder.write("a.txt", "BankFileName sfx.tvb\n");
  const ToolRun run = runTool(folder.path(), {"a.txt", "HeaderPrefix", std::string(80, 'p')},
                              {.shellPrefix = "ulimit -f 1;"});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.standardError, "Error: Failed to write header...\n");
  EXPECT_EQ(folder.read("sfx.tvb"), ExpectedBank().bytes());
  EXPECT_EQ(folder.read("sfx.h").find("ooo"), std::string::npos);
}

TEST_F(HostileHost, ClosedStreamsHarmNeitherTheFilesNorTheExitCode) {
  const ToolRunOptions closed{.redirections = "<&- >&- 2>&-"};
  EXPECT_EQ(runTool(folder.path(), {"u.bin"}, closed).exitCode, 1);
  EXPECT_EQ(runTool(folder.path(), {"a.txt"}, closed).exitCode, 0);
  EXPECT_EQ(folder.read("sfx.tvb"), expected.bank.bytes());
  EXPECT_TRUE(folder.read("sfx.h").ends_with("\n#endif\t//\tend of _SFX_H\n"));
}

}  // namespace
}  // namespace tavrel::test
