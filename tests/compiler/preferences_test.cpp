#include <gtest/gtest.h>

#include "compiler/bank_script.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

TEST(Preferences, PathsAreTakenUpToThePreferencesEnd) {
  const struct {
    std::string content;
    bool read;
    std::string problems, bankPath, scriptPath, headerPath;
  } rows[] = {
      {"PrefsEnd\n", true, "", "old", "old", "old"},
      {"bankoutputpath b/ SCRIPTPATH s/\nHeaderPath h/ ;x\nPREFSEND illegal ScriptPath no ", true,
       "", "b/", "s/", "h/"},
      {"ScriptPath one ScriptPath PrefsEnd PrefsEnd ", true, "", "old", "PrefsEnd", "old"},
      {"foo\nBankOutputPath out/\nbankPath PrefsEnd\n", true,
       "Error: Illegal token in pref file tavrel.rsp\nToken: foo Line Number: 1\n"
       "Error: Illegal token in pref file tavrel.rsp\nToken: bankPath Line Number: 3\n",
       "out/", "old", "old"},
      {"", false, "", "old", "old", "old"},
      {"HeaderPath h/ ", false, "", "old", "old", "h/"},
      {"HeaderPath h/ BankOutputPath PrefsEnd", false, "", "old", "old", "h/"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.content);
    const TemporaryDirectory folder;
    BankScript script("a.txt");
    for (FileName* file : {&script.bankFileName, &script.fileName, &script.headerFileName}) {
      file->setPath("old");
    }
    script.preferencesFileName.setName(folder.write("tool.rsp", row.content).c_str());
    script.preferencesFileName.setPath("nowhere/");  // only the name counts
    testing::internal::CaptureStderr();
    EXPECT_EQ(script.readPreferences(), row.read);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), row.problems);
    EXPECT_STREQ(script.bankFileName.path.get(), row.bankPath.c_str());
    EXPECT_STREQ(script.fileName.path.get(), row.scriptPath.c_str());
    EXPECT_STREQ(script.headerFileName.path.get(), row.headerPath.c_str());
  }
}

TEST(Preferences, AMissingFileIsReported) {
  BankScript script("a.txt");
  testing::internal::CaptureStderr();
  EXPECT_FALSE(script.readPreferences());  // no name at all
  script.preferencesFileName.setName("no.rsp");
  EXPECT_FALSE(script.readPreferences());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "File System Error: File \"\" Not Found\nFile System Error: File \"no.rsp\" Not "
            "Found\n");
}

}  // namespace
}  // namespace tavrel::test
