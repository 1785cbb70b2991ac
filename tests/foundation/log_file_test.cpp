#include "foundation/log_file.h"

#include <gmock/gmock.h>

#include <array>

#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// A log that keeps its lines in a file.
struct KeptLog : LogFile {
  KeptLog(const std::string& name, std::uint32_t fileMode) : LogFile(name.c_str()) {
    writeToFile = setMode(fileMode);
  }
  using LogFile::echoToConsole;
};

TEST(LogFileTest, PrintsLinesOfAnyLengthAndKeepsNoFileUnlessAsked) {
  const std::string text(250, 'n');
  const Printed printed = printedBy([&] {
    EXPECT_TRUE(theLog.openLog() && theLog.print("%s%d", text.c_str(), 12345) &&
                theLog.print("%s%d", text.c_str(), 123456) && theLog.closeLog());
    EXPECT_FALSE(theLog.print(nullptr));
  });
  EXPECT_EQ(printed.errors, text + "12345\n" + text + "123456\n");
  EXPECT_STREQ(theLog.fileName.getNameAndPath(), "logfile.txt");
  EXPECT_FALSE(std::filesystem::exists("logfile.txt"));
}

TEST(LogFileTest, WritesToAnOpenFileOrOpensItForEachLineAndReportsItsFirstFailure) {
  const TemporaryDirectory directory;
  const std::string name = directory.path("a.txt");
  const std::string folder = directory.path();
  KeptLog log("a.txt", modeWrite);
  KeptLog silent(name, modeAppend);
  KeptLog failing(folder, modeAppend);
  silent.echoToConsole = false;
  testing::internal::CaptureStderr();
  EXPECT_THAT((std::array{log.setLogPath(directory.path("").c_str()), log.openLog(), log.print("1"),
                          log.print("2"), log.closeLog(), log.setLogName("b"), silent.openLog(),
                          silent.print("3"), silent.closeLog(), !silent.isOpen,
                          KeptLog(name, modeRead).print("printed only")}),
              testing::Each(true));
  EXPECT_THAT(
      (std::array{failing.print("4"), failing.print("5"), KeptLog("a.txt", modeWrite).print("6"),
                  KeptLog("a.txt", modeWrite).closeLog(), KeptLog(folder, modeWrite).openLog()}),
      testing::Each(false));
  EXPECT_EQ(directory.read("a.txt"), "1\n2\n3\n");
  const std::string start = "File System Error: ";
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "1\n2\nprinted only\n4\n" + start + "Unable to Open \"" + folder +
                "\" For Write Appension\n5\n6\n" + start +
                "Can't Write \"a.txt\", File is Not Open\n" + start +
                "File \"a.txt\" is Already Closed\n" + start + "Unable to Open \"" + folder +
                "\" for Writing\n");
}

}  // namespace tavrel::test
