#include <gtest/gtest.h>

#include "compiler/bank_script.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(Preferences, PathsAreTakenUpToThePreferencesEnd) {
  const std::string illegal = "Error: Illegal token in pref file tavrel.rsp\nToken: ";
  const std::string rows[][2] = {
      {"bankoutputpath b/ SCRIPTPATH s/\nHeaderPath h/ ;x\nPREFSEND Foo ", "read b/ s/ h/ "},
      {"ScriptPath one ScriptPath PrefsEnd PrefsEnd ", "read  PrefsEnd  "},
      {"foo\nBankOutputPath b/\nPrefsEnd\n", "read b/   " + illegal + "foo Line Number: 1\n"},
      {"HeaderPath h/ ", "failed   h/ "},
      {"HeaderPath h/ BankOutputPath PrefsEnd", "failed   h/ "},
  };
  for (const auto& [content, expected] : rows) {
    const TemporaryDirectory folder;
    BankScript script("a.txt");
    script.preferencesFileName.setName(folder.write("tool.rsp", content).c_str());
    script.preferencesFileName.setPath("nowhere/");  // only the name counts
    testing::internal::CaptureStderr();
    std::string result = script.readPreferences() ? "read " : "failed ";
    for (const FileName* file : {&script.bankFileName, &script.fileName, &script.headerFileName}) {
      result += std::string(textOrEmpty(file->path)) + ' ';
    }
    EXPECT_EQ(result + testing::internal::GetCapturedStderr(), expected) << content;
  }
}

}  // namespace tavrel::test
