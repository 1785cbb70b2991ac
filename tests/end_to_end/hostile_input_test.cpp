#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/support/bytes.h"
#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

TEST(HostileInput, MissingScriptsAndFoldersInTheirPlaceAreNotFound) {
  const TemporaryDirectory folder;
  std::filesystem::create_directory(folder.path("folder"));
  for (const std::string name : {"none.txt", "folder"}) {
    expectRun(folder, {.arguments = {name},
                       .scriptFile = name,
                       .problems = "File System Error: File \"" + name + "\" Not Found\n",
                       .outcome = Outcome::parseFails});
  }
  folder.write("a.txt", "BankFileName sfx.tvb FxProgramBank folder AssetEnd\n");
  expectRun(folder, {.reading = "Reading DSP File: folder\n",
                     .problems = "Script File: a.txt\n"
                                 "Error: Unidentified token: AssetEnd at line: 1\n",
                     .outcome = Outcome::parseFails});
}

TEST(HostileInput, AsManyAssetsAsIdsAndNoMore) {
  constexpr int kAllIds = 32768;
  const TemporaryDirectory folder;
  folder.write("e", "");
  ExpectedRun expected;
  std::string script = "BankFileName sfx.tvb\n";
  for (int id = 0; id < kAllIds; ++id) {
    script += "UserAsset e AssetEnd ";
    expected.reading += "Reading Unknown File: e\n";
    expected.writing += "Writing Unknown Data: e_\n";
    expected.bank.asset(6, "", Pad::to4);
    expected.defines.push_back({"E_", id});
  }
  folder.write("a.txt", script + "ScriptEnd ");
  expectRun(folder, expected);
  folder.write("a.txt", script + "UserAsset e AssetEnd ");
  expected.problems =
      "ERROR: Asset e_ is one too many, only 32768 assets allowed\n"
      "Script File: a.txt\nError: Unidentified token: AssetEnd at line: 2\n";
  expected.outcome = Outcome::parseFails;
  expectRun(folder, expected);
}

/// A folder with a script for one user asset, and the run that packs it. The asset is longer than
/// any buffer, so that a failing write shows at once.
struct SmallBuild {
  SmallBuild() {
    folder.write("u.bin", payload);
    folder.write("a.txt", "BankFileName sfx.tvb UserAsset u.bin AssetEnd\n");
    folder.write("none.txt", "");
    expected.bank.asset(6, payload, Pad::to4);
    expected.defines = {{"U_BIN", 0}};
  }
  const std::string payload = std::string(100000, 'u');
  TemporaryDirectory folder;
  ExpectedRun expected{.reading = "Reading Unknown File: u.bin\n"};
};

TEST(HostileInput, AReadOnlyFolderFailsTheBank) {
  SmallBuild build;
  using std::filesystem::perms;
  std::filesystem::permissions(build.folder.path(), perms::owner_read | perms::owner_exec);
  const bool binding = !std::ofstream(build.folder.path("probe"));
  if (binding) {
    build.expected.outcome = Outcome::bankFails;
    expectRun(build.folder, build.expected);
  }
  std::filesystem::permissions(build.folder.path(), perms::owner_all);
  if (!binding) {
    GTEST_SKIP() << "permissions don't bind this user";
  }
}

/// What only a POSIX host has: devices and a shell that closes streams and limits files.
class PosixHost : public testing::Test {
 protected:
  void SetUp() override {
    if (std::filesystem::path::preferred_separator != '/') {
      GTEST_SKIP() << "not on this host";
    }
  }
};

TEST_F(PosixHost, DevicesAreNotRead) {
  SmallBuild build;
  std::filesystem::create_symlink("/dev/zero", build.folder.path("zero"));
  expectRun(build.folder, {.arguments = {"zero"},
                           .scriptFile = "zero",
                           .problems = "File System Error: Read Error (zero)\n",
                           .outcome = Outcome::parseFails});
  build.folder.write("a.txt", "BankFileName sfx.tvb MidiToneBank zero AssetEnd\n");
  expectRun(build.folder, {.reading = "Reading MTB File: zero\n",
                           .problems = "Script File: a.txt\n"
                                       "Error: Unidentified token: AssetEnd at line: 1\n",
                           .outcome = Outcome::parseFails});
}

TEST_F(PosixHost, AFullDiskFailsThePhaseThatMeetsIt) {
  SmallBuild bank;
  std::filesystem::create_symlink("/dev/full", bank.folder.path("sfx.tvb"));
  bank.expected.outcome = Outcome::bankFails;
  expectRun(bank.folder, bank.expected);
  SmallBuild header;
  std::filesystem::create_symlink("/dev/full", header.folder.path("sfx.h"));
  header.expected.outcome = Outcome::headerFails;
  header.expected.writing = "Writing Unknown Data: u_bin\n";
  expectRun(header.folder, header.expected);
}

TEST_F(PosixHost, AFailedWriteLeavesWhatItWroteInTheOldFilesPlace) {
  const SmallBuild build;
  build.folder.write("sfx.tvb", "an older bank");
  EXPECT_EQ(runTool(build.folder.path(), {"a.txt"}, {.shellPrefix = "ulimit -f 64;"}).exitCode, 1);
  const std::string bankLeft = build.folder.read("sfx.tvb");
  const Bytes table = Bytes().le32(1).le32(6).le32(0).le32(100000).fill(8 * 4);
  EXPECT_EQ(bankLeft, Bytes(table).text(build.payload).str().substr(0, bankLeft.size()));
  EXPECT_GT(bankLeft.size(), table.size());

  build.folder.write("a.txt", "BankFileName sfx.tvb\n");
  build.folder.write("sfx.h", std::string(5000, 'o'));
  const ToolRun run = runTool(build.folder.path(), {"a.txt", "HeaderPrefix", std::string(80, 'p')},
                              {.shellPrefix = "ulimit -f 1;"});
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.standardError, "Error: Failed to write header...\n");
  EXPECT_EQ(build.folder.read("sfx.tvb"), ExpectedBank().bytes());
  EXPECT_EQ(build.folder.read("sfx.h").find("oooo"), std::string::npos);
}

TEST_F(PosixHost, ClosedStreamsHarmNeitherTheFilesNorTheExitCode) {
  const SmallBuild build;
  const ToolRunOptions closed{.redirections = "<&- >&- 2>&-"};
  EXPECT_EQ(runTool(build.folder.path(), {"none.txt"}, closed).exitCode, 1);
  EXPECT_EQ(runTool(build.folder.path(), {"a.txt"}, closed).exitCode, 0);
  EXPECT_EQ(build.folder.read("sfx.tvb"), build.expected.bank.bytes());
  EXPECT_TRUE(build.folder.read("sfx.h").ends_with("\n#endif\t//\tend of _SFX_H\n"));
}

}  // namespace
}  // namespace tavrel::test
