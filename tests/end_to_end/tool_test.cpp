// What is no run, and what differs from run to run; run_test.cpp shows the rest.
#include <gtest/gtest.h>

#include <ctime>
#include <iomanip>
#include <sstream>

#include "tests/support/temporary_directory.h"
#include "tests/support/tool_run.h"

namespace tavrel::test {

TEST(Tool, NoArgumentsGiveTheUsageReport) {
  const TemporaryDirectory folder;
  const std::string rule = std::string(79, '-') + '\n';
  const ToolRun run = runTool(folder.path(), "");
  EXPECT_EQ(run.exitCode, 1);
  EXPECT_EQ(run.standardOutput, "");
  EXPECT_EQ(run.standardError,
            rule + "Tavrel Audio Packager\nRevision 1.82 7/22/1999 5:36 pm\n" + rule +
                "\nError: Incorrect command line arguments...\n"
                "Usage: tavrel scriptFileName [bankPath bankOutputPathWithSlashOnEnd] [scriptPath "
                "scriptPathWithSlashOnEnd] [headerPath headerPathWithSlashOnEnd] [HeaderPrefix "
                "theHeaderPrefix]\n");
}

TEST(Tool, TheHeaderTellsTheTime) {
  const TemporaryDirectory folder;
  folder.write("a.txt", "BankFileName sfx.tvb\n");
  runTool(folder.path(), "a.txt");
  const std::string header = folder.read("sfx.h");
  std::tm time{};
  std::istringstream(header.substr(header.find("Rev:") + 4)) >>
      std::get_time(&time, " %m/%d/%Y %H:%M");
  time.tm_hour += header.find(" pm - File") == std::string::npos ? 0 : 12;
  time.tm_isdst = -1;
  EXPECT_NEAR(std::difftime(std::time(nullptr), std::mktime(&time)), 0, 120);
}

}  // namespace tavrel::test
