#include "compiler/bank_script.h"
#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(Preferences, SetThePathsUpToPrefsEnd) {
  const TemporaryDirectory directory;
  const std::string name = directory.path("tool.rsp");
  const std::string illegal = "Error: Illegal token in pref file tavrel.rsp\nToken: ";
  const struct {
    std::string text;
    bool isRead;
    std::string paths, problems;  // the paths of bank, script and header
  } rows[] = {
      {"", false, ",,,", "File System Error: File \"" + name + "\" Not Found\n"},
      {"bankoutputpath b/ SCRIPTPATH s/\nHeaderPath h/ ;x\nPREFSEND Foo ", true, "b/,s/,h/,", ""},
      {"ScriptPath one ScriptPath PrefsEnd PrefsEnd ", true, ",PrefsEnd,,", ""},
      {"x\nBankOutputPath b/\nPrefsEnd\n", true, "b/,,,", illegal + "x Line Number: 1\n"},
      {"HeaderPath h/ ", false, ",,h/,", ""},
      {"HeaderPath h/ BankOutputPath PrefsEnd", false, ",,h/,", ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    BankScript script("a.txt");
    script.preferencesFileName.setName(name.c_str());
    script.preferencesFileName.setPath("nowhere/");  // only the name counts
    if (!row.text.empty()) {
      directory.write("tool.rsp", row.text);
    }
    const Printed printed = printedBy([&] { EXPECT_EQ(script.readPreferences(), row.isRead); });
    EXPECT_EQ(printed.errors, row.problems);
    std::string paths;
    for (const FileName* file : {&script.bankFileName, &script.fileName, &script.headerFileName}) {
      paths += std::string(textOrEmpty(file->path)) + ',';
    }
    EXPECT_EQ(paths, row.paths);
  }
}

}  // namespace tavrel::test
