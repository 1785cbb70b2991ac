#include "foundation/log_file.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

struct WrittenLog : LogFile {
  WrittenLog(const std::string& name, std::uint32_t fileMode) : LogFile(name.c_str()) {
    writeToFile = setMode(fileMode);
  }
};

TEST(LogFileTest, LinesComeOutWholeAndAreKeptOnlyIfToldToAndAFailureIsToldOnce) {
  TemporaryDirectory directory;
  std::string missing = directory.path("missing/");
  missing.resize(253, 'n');  // 256 characters with "50%"
  WrittenLog bad(missing, modeWrite);
  WrittenLog log("a.txt", modeWrite);
  WrittenLog appended(directory.path("a.txt"), modeAppend);
  testing::internal::CaptureStderr();
  EXPECT_TRUE(theLog.openLog() && theLog.print("%s%d%%", missing.c_str(), 50) && theLog.closeLog());
  EXPECT_FALSE(bad.openLog() || bad.print("lost") || bad.closeLog());
  EXPECT_TRUE(log.setLogPath(directory.path("").c_str()) && log.openLog() && log.print("1"));
  EXPECT_TRUE(log.print("2") && log.closeLog() && !log.isOpen);
  EXPECT_TRUE(appended.openLog() && appended.print("3") && !appended.isOpen && appended.closeLog());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            missing + "50%\nFile System Error: Unable to Open \"" + missing +
                "\" for Writing\nlost\n1\n2\n3\n");
  EXPECT_EQ(directory.read("a.txt"), "1\n2\n3\n");
  EXPECT_TRUE(!std::filesystem::exists(theLog.fileName.getNameAndPath()));
}

}  // namespace tavrel::test
