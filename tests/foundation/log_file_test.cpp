#include "foundation/log_file.h"

#include "tests/support/all.h"
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
    EXPECT_TRUE(all({theLog.openLog(), theLog.print("%s%d", text.c_str(), 12345),
                     theLog.print("%s%d", text.c_str(), 123456), theLog.closeLog(),
                     !theLog.print(nullptr)}));
  });
  EXPECT_EQ(printed.errors, text + "12345\n" + text + "123456\n");
  EXPECT_STREQ(theLog.fileName.getNameAndPath(), "logfile.txt");
  EXPECT_STREQ(LogFile("a.txt", "logs/").fileName.getNameAndPath(), "logs/a.txt");
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
  EXPECT_TRUE(
      all({log.setLogPath(directory.path("").c_str()), log.openLog(), log.print("1"),
           log.print("2"), log.closeLog(), log.setLogName("b"), silent.openLog(), silent.print("3"),
           silent.closeLog(), !silent.isOpen, KeptLog(name, modeRead).print("printed only")}));
  EXPECT_TRUE(
      all({!failing.print("4"), !failing.print("5"), !KeptLog("a.txt", modeWrite).print("6"),
           !KeptLog("a.txt", modeWrite).closeLog(), !KeptLog(folder, modeWrite).openLog()}));
  EXPECT_EQ(directory.read("a.txt"), "1\n2\n3\n");
  const std::string cannotOpen = "File System Error: Unable to Open \"" + folder;
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "1\n2\nprinted only\n4\n" + cannotOpen +
                "\" For Write Appension\n5\n6\n"
                "File System Error: Can't Write \"a.txt\", File is Not Open\n"
                "File System Error: File \"a.txt\" is Already Closed\n" +
                cannotOpen + "\" for Writing\n");
}

}  // namespace tavrel::test
