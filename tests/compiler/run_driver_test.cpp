#include "compiler/run_driver.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

/// Runs the tool and gives its exit code; what it prints on standard output goes to `output`.
int runQuietly(std::vector<const char*> arguments, std::string& output) {
  arguments.push_back(nullptr);
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  const int exitCode = runTavrel(static_cast<int>(arguments.size()) - 1, arguments.data());
  output = testing::internal::GetCapturedStdout();
  testing::internal::GetCapturedStderr();
  return exitCode;
}

TEST(RunDriver, OnlyAFailedRunReadsOneCharacterOfStandardInput) {
  const TemporaryDirectory folder;
  const std::string answers = folder.write("answers", "123");
  const std::string script = folder.write("a.txt", "BankFileName sfx.tvb\n");
  const std::string paths = folder.path() + "/";
  const struct {
    std::vector<const char*> arguments;
    int exitCode;
    char nextAnswer;
  } rows[] = {
      {{}, 1, '1'},
      {{"tavrel"}, 1, '1'},
      {{"tavrel", script.c_str(), "bankPath", paths.c_str(), "headerPath", paths.c_str()}, 0, '1'},
      {{"tavrel", answers.c_str()}, 1, '2'},
  };
  for (const auto& row : rows) {
    ASSERT_NE(std::freopen(answers.c_str(), "r", stdin), nullptr);
    std::string output;
    EXPECT_EQ(runQuietly(row.arguments, output), row.exitCode);
    EXPECT_EQ(std::getchar(), row.nextAnswer);
  }
}

TEST(RunDriver, TheProgramsOwnNameIsTestedForKeywords) {
  std::string output;
  EXPECT_EQ(runQuietly({"BankPath", "none.txt", "out/"}, output), 1);
  EXPECT_NE(output.find("\nScript File:\tnone.txt\nHeader Path:\t\nBank Path:\tnone.txt\n"),
            std::string::npos)
      << output;
}

}  // namespace
}  // namespace tavrel::test
