#include "foundation/log_file.h"

#include <gmock/gmock.h>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

using testing::Each;

/// A log that keeps its lines in a file.
struct KeptLog : LogFile {
  KeptLog(const std::string& name, std::uint32_t fileMode) : LogFile(name.c_str()) {
    writeToFile = setMode(fileMode);
  }
  using LogFile::echoToConsole;
};

class LogFileTest : public testing::Test {
 protected:
  LogFileTest() { testing::internal::CaptureStderr(); }
  static std::string printed() { return testing::internal::GetCapturedStderr(); }

  const TemporaryDirectory directory_;
  const std::string name_ = directory_.path("a.txt");
};

TEST_F(LogFileTest, PrintsLinesOfAnyLengthAndKeepsNoFileUnlessAsked) {
  const std::string text(250, 'n');
  EXPECT_THAT((std::array{theLog.openLog(), theLog.print("%s%d", text.c_str(), 12345),
                          theLog.print("%s%d", text.c_str(), 123456), theLog.closeLog()}),
              Each(true));
  EXPECT_FALSE(theLog.print(nullptr));
  EXPECT_EQ(printed(), text + "12345\n" + text + "123456\n");
  EXPECT_STREQ(theLog.fileName.getNameAndPath(), "logfile.txt");
  EXPECT_FALSE(std::filesystem::exists("logfile.txt"));
}

TEST_F(LogFileTest, WritesToAnOpenFileOrOpensItForEachLine) {
  KeptLog log("a.txt", modeWrite);
  EXPECT_THAT((std::array{log.setLogPath(directory_.path("").c_str()), log.openLog(),
                          log.print("1"), log.print("2"), log.closeLog(), log.setLogName("b"),
                          KeptLog(name_, modeRead).print("printed only")}),
              Each(true));
  KeptLog appended(name_, modeAppend);
  appended.echoToConsole = false;
  EXPECT_THAT((std::array{appended.openLog(), appended.print("3"), appended.closeLog()}),
              Each(true));
  EXPECT_FALSE(appended.isOpen);
  EXPECT_EQ(directory_.read("a.txt"), "1\n2\n3\n");
  EXPECT_EQ(printed(), "1\n2\nprinted only\n");
}

TEST_F(LogFileTest, ReportsTheFirstFailureOfItsFile) {
  KeptLog folder(directory_.path(), modeAppend);
  EXPECT_FALSE(folder.print("1"));
  EXPECT_FALSE(folder.print("2"));
  EXPECT_FALSE(KeptLog("a.txt", modeWrite).print("3"));
  EXPECT_FALSE(KeptLog("a.txt", modeWrite).closeLog());
  EXPECT_FALSE(KeptLog(directory_.path(), modeWrite).openLog());
  EXPECT_EQ(printed(), "1\nFile System Error: Unable to Open \"" + directory_.path() +
                           "\" For Write Appension\n2\n3\n"
                           "File System Error: Can't Write \"a.txt\", File is Not Open\n"
                           "File System Error: File \"a.txt\" is Already Closed\n"
                           "File System Error: Unable to Open \"" +
                           directory_.path() + "\" for Writing\n");
}

}  // namespace tavrel::test
