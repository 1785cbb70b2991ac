// The forms in which check prints problems, what its options allow, and what explain says.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "kit/frame/command_line.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::kit {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class CheckFormsTest : public testing::Test {
 protected:
  CheckFormsTest() : before_(std::filesystem::current_path()) {
    directory_.write("level.dat", "four");
    directory_.write("a b.txt", "BankFileName a.bin ; \xC3\xA9\nScriptEnd\n");
    directory_.write("bad.txt",
                     "BankFileName b.tvb\n\tUserAsset level.dat Lop 1 AssetEnd\nScriptEnd\n");
    directory_.write("here.txt",
                     "BankFileName b.x ; tavkit: allow unaligned, bank-name\nScriptEnd\n");
    directory_.write("all.txt",
                     "; sounds\n; tavkit: allow bank-name\n\nBankFileName b.x\nScriptEnd\n");
    directory_.write("blank.txt",
                     "\n; tavkit: allow bank-name, bank-nam\nBankFileName b.x\nScriptEnd\n");
    directory_.write("error.txt", "BankFileName b.tvb ; tavkit: allow missing-file\nScriptEnd\n");
  }
  ~CheckFormsTest() override { std::filesystem::current_path(before_); }

  int run(std::vector<std::string> arguments) {
    std::filesystem::current_path(before_);
    arguments.insert(arguments.begin() + 1, {"-C", directory_.path()});
    return runCommandLine(arguments, output_ = {});
  }

  test::TemporaryDirectory directory_;
  std::filesystem::path before_;
  Output output_;
};

TEST_F(CheckFormsTest, TextOfSeveralScriptsAndAUri) {
  const std::string place = (std::filesystem::path(directory_.path()) / "").string();
  EXPECT_EQ(run({"check", "a b.txt", "bad.txt", "./a b.txt"}), 1);
  EXPECT_EQ(output_.results,
            place +
                "a b.txt:1:14: warning: a.bin: A_FILENAME in the header will be a.tvb [bank-name]\n"
                "BankFileName a.bin ; \xC3\xA9\n"
                "             ^\n"
                "  Name the bank a.tvb\n" +
                place +
                "bad.txt:2:22: error: level.dat: Lop isn't an option of UserAsset [unknown-word]\n"
                " UserAsset level.dat Lop 1 AssetEnd\n"
                "                     ^\n");
  EXPECT_EQ(output_.messages, "1 error, 1 warning\n");
  run({"check", "a b.txt", "--format", "sarif"});
  EXPECT_THAT(output_.results, HasSubstr(R"(/a%20b.txt")"));
}

TEST_F(CheckFormsTest, ExitCodes) {
  struct Row {
    std::vector<std::string> arguments;
    int status;
    std::string messages;  ///< how they begin
  };
  for (const Row& row : {
           Row{{"check", "a b.txt"}, 0, "0 errors, 1 warning\n"},
           Row{{"check", "--werror", "a b.txt"}, 1, "0 errors, 1 warning\n"},
           Row{{"check", "--werror", "--allow", "bank-name", "a b.txt"}, 0, "0 errors, 0"},
           Row{{"check", "here.txt", "all.txt"}, 0, "0 errors, 0 warnings\n"},
           Row{{"check", "blank.txt"}, 0, "0 errors, 1 warning\n"},
           Row{{"check", "error.txt"}, 0, "0 errors, 1 warning\n"},
           Row{{"check", "--allow", "unaligned,bank-name", "a b.txt"}, 0, "0 errors, 0"},
           Row{{"check", "--allow", "bank-name,", "a b.txt"}, 2, "tavkit: there is no code"},
           Row{{"check", "--json", "--format", "sarif", "a b.txt"}, 2, "tavkit: --json contra"},
           Row{{"check", "--max-bytes", "1K", "all.txt"}, 0, "0 errors"},
           Row{{"check", "--max-bytes", "1G", "all.txt"}, 2, "tavkit: --max-bytes takes"},
           Row{{"check", "--max-bytes", "18446744073709551615K", "all.txt"}, 2, "tavkit: --max"},
           Row{{"check", "--allow", "bank-nam", "all.txt"},
               2,
               "tavkit: there is no code bank-nam; did you mean bank-name?"},
           Row{{"check", "--allow", "missing-file", "all.txt"}, 2, "tavkit: missing-file is an"},
           Row{{"check", "--prefix", std::string(81, 'p'), "all.txt"}, 2, "tavkit: the prefix"},
           Row{{"check", "--list-codes", "--json"}, 2, "tavkit: --list-codes"},
           Row{{"check", "all.txt", "none.txt"}, 2, "tavkit: can't read none.txt"},
           Row{{"check"}, 2, "tavkit: no script"},
       }) {
    SCOPED_TRACE(testing::PrintToString(row.arguments));
    EXPECT_EQ(run(row.arguments), row.status);
    EXPECT_THAT(output_.messages, StartsWith(row.messages));
    EXPECT_TRUE(row.status != 2 || output_.results.empty());
  }
}

TEST_F(CheckFormsTest, ExplainsEveryListedCode) {
  ASSERT_EQ(run({"check", "--list-codes"}), 0);
  std::istringstream list(output_.results);
  std::string line;
  std::size_t count = 0;
  for (std::getline(list, line); std::getline(list, line); ++count) {
    const std::string code = line.substr(0, line.find(' '));
    EXPECT_EQ(runCommandLine({"explain", code}, output_ = {}), 0) << code;
    EXPECT_THAT(output_.results, StartsWith(code + " ("));
  }
  EXPECT_EQ(count, 54U);  // 27 errors and 27 warnings
  EXPECT_EQ(runCommandLine({"explain"}, output_ = {}), 2);
  EXPECT_THAT(output_.messages, HasSubstr("check --list-codes"));
  EXPECT_EQ(runCommandLine({"explain", "adpcm-lop"}, output_ = {}), 2);
  EXPECT_THAT(output_.messages, HasSubstr("did you mean adpcm-loop?"));
}

}  // namespace
}  // namespace tavrel::kit
