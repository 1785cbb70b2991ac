// The forms in which check prints problems, what its options allow, and what explain says.
#include "tests/kit/command_test.h"

namespace tavrel::kit {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class CheckFormsTest : public CommandTest {
 protected:
  CheckFormsTest() {
    const std::string end = "\nScriptEnd\n";
    write("level.dat", "four");
    write("a b.txt", "BankFileName a.bin ; \xC3\xA9" + end);
    write("bad.txt", "BankFileName b.tvb\n\tUserAsset level.dat Lop 1 AssetEnd" + end);
    write("here.txt", "BankFileName b.x ; tavkit: allow unaligned, bank-name" + end);
    write("all.txt", "; sounds\n; tavkit: allow bank-name\n\nBankFileName b.x" + end);
    write("blank.txt", "\n; tavkit: allow bank-name, bank-nam\nBankFileName b.x" + end);
    write("error.txt", "BankFileName b.tvb ; tavkit: allow missing-file" + end);
  }
};

TEST_F(CheckFormsTest, TextOfSeveralScriptsAndAUri) {
  const std::string place = (fs::path(folder_.path()) / "").string();
  EXPECT_EQ(run({"check", "-C", folder_.path(), "a b.txt", "bad.txt", "./a b.txt"}), 1);
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
  run({"check", "-C", folder_.path(), "a b.txt", "--format", "sarif"});
  EXPECT_THAT(output_.results, HasSubstr(R"(/a%20b.txt")"));
}

TEST_F(CheckFormsTest, ExitCodes) {
  const struct {
    Lines arguments;
    int status;
    std::string messages;  ///< how they begin
  } rows[] = {
      {{"a b.txt"}, 0, "0 errors, 1 warning\n"},
      {{"--werror", "a b.txt"}, 1, "0 errors, 1 warning\n"},
      {{"--werror", "--allow", "bank-name", "a b.txt"}, 0, "0 errors, 0"},
      {{"here.txt", "all.txt"}, 0, "0 errors, 0 warnings\n"},
      {{"blank.txt"}, 0, "0 errors, 1 warning\n"},
      {{"error.txt"}, 0, "0 errors, 1 warning\n"},
      {{"--allow", "unaligned,bank-name", "a b.txt"}, 0, "0 errors, 0"},
      {{"--allow", "bank-name,", "a b.txt"}, 2, "tavkit: there is no code"},
      {{"--json", "--format", "sarif", "a b.txt"}, 2, "tavkit: --json contra"},
      {{"--max-bytes", "1K", "all.txt"}, 0, "0 errors"},
      {{"--max-bytes", "1G", "all.txt"}, 2, "tavkit: --max-bytes takes"},
      {{"--max-bytes", "18446744073709551615K", "all.txt"}, 2, "tavkit: --max"},
      {{"--allow", "bank-nam", "all.txt"}, 2, "tavkit: there is no code bank-nam; did you mean b"},
      {{"--allow", "missing-file", "all.txt"}, 2, "tavkit: missing-file is an"},
      {{"--prefix", std::string(81, 'p'), "all.txt"}, 2, "tavkit: the prefix"},
      {{"--list-codes", "--json"}, 2, "tavkit: --list-codes"},
      {{"all.txt", "none.txt"}, 2, "tavkit: can't read none.txt"},
      {{}, 2, "tavkit: no script"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.arguments));
    EXPECT_EQ(run({"check"}, row.arguments), row.status);
    EXPECT_THAT(output_.messages, StartsWith(row.messages));
  }
}

TEST_F(CheckFormsTest, ExplainsEveryListedCode) {
  ASSERT_EQ(run({"check", "--list-codes"}), 0);
  std::istringstream list(output_.results);
  std::string line;
  std::size_t count = 0;
  for (std::getline(list, line); std::getline(list, line); ++count) {
    const std::string code = line.substr(0, line.find(' '));
    EXPECT_EQ(run({"explain", code}), 0) << code;
    EXPECT_THAT(output_.results, StartsWith(code + " ("));
  }
  EXPECT_EQ(count, 54U);  // 27 errors and 27 warnings
  EXPECT_EQ(run({"explain"}), 2);
  EXPECT_THAT(output_.messages, HasSubstr("check --list-codes"));
  EXPECT_EQ(run({"explain", "adpcm-lop"}), 2);
  EXPECT_THAT(output_.messages, HasSubstr("did you mean adpcm-loop?"));
}

}  // namespace
}  // namespace tavrel::kit
