#include "foundation/log_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

/// File output is on and console output off: only its own failure reaches standard error.
class WrittenLog : public LogFile {
 public:
  WrittenLog(const std::string& name, std::uint32_t fileMode) : LogFile(name.c_str()) {
    writeToFile = true;
    echoToConsole = false;
    setMode(fileMode);
  }
};

TEST(LogFileTest, PrintsWholeLinesOnStandardErrorAndWritesNoFile) {
  const std::string text(251, 'x');  // 256 characters in all
  testing::internal::CaptureStderr();
  EXPECT_TRUE(theLog.openLog() && theLog.print("%s: %d%%", text.c_str(), 50) && theLog.closeLog());
  EXPECT_EQ(testing::internal::GetCapturedStderr(), text + ": 50%\n");
  EXPECT_STREQ(theLog.fileName.getNameAndPath(), "logfile.txt");
  EXPECT_FALSE(std::filesystem::exists("logfile.txt"));
}

TEST(LogFileTest, WriteModeKeepsTheFileOpenAndAppendModeDoesNot) {
  TemporaryDirectory directory;
  WrittenLog log("", modeWrite);
  EXPECT_TRUE(log.setLogName("log.txt") && log.setLogPath(directory.path("").c_str()));
  EXPECT_TRUE(log.openLog() && log.print("%d", 1) && log.isOpen && log.print("two"));
  EXPECT_TRUE(log.closeLog() && !log.isOpen);
  WrittenLog appended(directory.path("log.txt"), modeAppend);
  EXPECT_TRUE(appended.openLog() && appended.print("three") && !appended.isOpen);
  EXPECT_TRUE(appended.print("four") && appended.closeLog());
  EXPECT_EQ(directory.read("log.txt"), "1\ntwo\nthree\nfour\n");
}

TEST(LogFileTest, ItsOwnFailureIsToldOnceAndLeavesNoAppendedFileOpen) {
  TemporaryDirectory directory;
  const std::string name = directory.path("later/") + std::string(200, 'n');
  WrittenLog log(name + name, modeWrite);
  WrittenLog appended(name, modeAppend);
  testing::internal::CaptureStderr();
  EXPECT_FALSE(log.openLog() || log.print("lost") || log.closeLog() || appended.print("lost"));
  std::filesystem::create_directory(directory.path("later"));
  EXPECT_FALSE(appended.print("lost too, as the error stands") || appended.isOpen);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "File System Error: Unable to Open \"" + name + name + "\" for Writing\n" +
                "File System Error: Unable to Open \"" + name + "\" For Write Appension\n");
}

}  // namespace
}  // namespace tavrel::test
