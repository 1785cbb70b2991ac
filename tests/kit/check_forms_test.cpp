// The forms in which check prints problems, what its options allow, and what explain says.
#ifndef _WIN32
#include <unistd.h>
#endif
#include <cerrno>
#include <cstring>

#include "platform/host_path.h"
#include "tests/kit/command_test.h"

namespace tavrel::kit {
namespace {

using testing::HasSubstr;

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
  run({"check", "blank.txt"});
  EXPECT_THAT(output_.results, HasSubstr("bank-nam isn't a code; did you mean bank-name?"));
  run({"check", "-C", folder_.path(), "a b.txt", "--format", "sarif"});
  EXPECT_THAT(output_.results, HasSubstr(R"(/a%20b.txt")"));
  EXPECT_THAT(output_.results, HasSubstr(R"( will be a.tvb. Name the bank a.tvb")"));
  if (std::string_view(kHostSeparators).find(':') == std::string_view::npos) {
    fs::copy_file("a b.txt", "a:b.txt");
    run({"check", "a:b.txt", "--format", "sarif"});
    EXPECT_THAT(output_.results, HasSubstr(R"("uri": "a%3Ab.txt")"));
  }
}

TEST_F(CheckFormsTest, TextHasAPartOfALongLine) {
  const std::string blanks(150, ' ');
  const std::string name(300, 'x');
  std::string letters;
  while (letters.size() < 240) {
    letters += "\xC3\xA9";
  }
  write("wide.txt", "BankFileName b.tvb\nUserAsset " + name + " AssetEnd\n" + blanks +
                        "UserAsset gone AssetEnd\nUserAsset " + letters + " AssetEnd UserAsset x" +
                        letters + " AssetEnd Lop\nScriptEnd\n");
  EXPECT_EQ(run({"check", "wide.txt"}), 1);
  EXPECT_THAT(output_.results, HasSubstr("\nUserAsset " + name.substr(0, 190) + '\n' +
                                         blanks.substr(0, 10) + "^\n"));
  EXPECT_THAT(output_.results, HasSubstr('\n' + blanks.substr(0, 89) + "UserAsset gone AssetEnd\n" +
                                         blanks.substr(0, 99) + "^\n"));
  EXPECT_THAT(output_.results, HasSubstr("wide.txt:4:282: "));
  EXPECT_THAT(output_.results, HasSubstr('\n' + letters.substr(2 * 31) + " AssetEnd Lop\n" +
                                         blanks.substr(0, 99) + "^\n"));
}

TEST_F(CheckFormsTest, ExitCodes) {
  write("4g.txt", "");
  fs::resize_file("4g.txt", std::uintmax_t{1} << 32U);
  expectAnswers(
      {"check"},
      {
          {{"a b.txt"}, "0 errors, 1 warning\n", 0},
          {{"--werror", "a b.txt"}, "0 errors, 1 warning\n", 1},
          {{"--werror", "--allow", "bank-name", "a b.txt"}, "0 errors, 0", 0},
          {{"here.txt", "all.txt"}, "0 errors, 0 warnings\n", 0},
          {{"blank.txt"}, "0 errors, 1 warning\n", 0},
          {{"error.txt"}, "0 errors, 1 warning\n", 0},
          {{"--allow", "unaligned,bank-name", "a b.txt"}, "0 errors, 0", 0},
          {{"--allow", "bank-name,", "a b.txt"}, "tavkit: there is no code"},
          {{"--json", "--format", "sarif", "a b.txt"}, "tavkit: --json contra"},
          {{"--max-bytes", "1K", "all.txt"}, "0 errors", 0},
          {{"--max-bytes", "1G", "all.txt"}, "tavkit: --max-bytes takes"},
          {{"--max-bytes", "18446744073709551615K", "all.txt"}, "tavkit: --max"},
          {{"--allow", "bank-nam", "all.txt"}, "tavkit: there is no code bank-nam; did you mean b"},
          {{"--allow", "missing-file", "all.txt"}, "tavkit: missing-file is an"},
          {{"--prefix", std::string(81, 'p'), "all.txt"}, "tavkit: the prefix"},
          {{"--list-codes", "--json"}, "tavkit: --list-codes"},
          {{"all.txt", "none.txt"}, "tavkit: can't read none.txt"},
          {{"4g.txt"}, "tavkit: can't read 4g.txt: it has 4 GiB or more\n"},
          {{}, "tavkit: no script"},
      });
}

#ifndef _WIN32
TEST_F(CheckFormsTest, SaysWhyTheHostRefusesAScript) {
  constexpr uid_t kNobody = 65534;
  fs::permissions(folder_.path(), fs::perms::others_exec, fs::perm_options::add);
  fs::permissions("all.txt", fs::perms::none);
  const uid_t user = geteuid();  // root can read every file
  if (user == 0 && seteuid(kNobody) != 0) {
    GTEST_SKIP() << "can't become another user";
  }
  EXPECT_EQ(runCommandLine({"check", "all.txt"}, output_), 2);
  ASSERT_EQ(seteuid(user), 0);
  EXPECT_EQ(output_.messages,
            std::string("tavkit: can't read all.txt: ") + std::strerror(EACCES) + '\n');
}
#endif

/// Expects paragraphs, up to an empty line, whose lines have at most 80 characters but as many
/// words as they can. The second paragraph starts with "Fix: ".
void expectFilled(const std::string& text) {
  std::istringstream lines(text);
  std::string line;
  std::string next;
  for (std::getline(lines, line); !line.empty(); line = next) {
    next.clear();
    std::getline(lines, next);
    EXPECT_LE(line.size(), 80U) << line;
    EXPECT_TRUE(next.empty() || next.starts_with("Fix: ") ||
                line.size() + 1 + std::min(next.find(' '), next.size()) > 80U)
        << line;
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
    EXPECT_THAT(output_.results, testing::StartsWith(code + " ("));
    expectFilled(output_.results.substr(output_.results.find("\n\n") + 2));
  }
  EXPECT_EQ(count, 54U);  // 27 errors and 27 warnings
  expectAnswers({"explain"},
                {{{}, "check --list-codes"}, {{"adpcm-lop"}, "did you mean adpcm-loop?"}});
  run({"explain", "adpcm-loop"});
  EXPECT_THAT(output_.results, HasSubstr("\n\nExample:\n    WaveFile engine.wav "));
}

}  // namespace
}  // namespace tavrel::kit
