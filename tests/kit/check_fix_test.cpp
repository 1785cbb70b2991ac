// What `tavkit check --fix` changes in a script, and what it leaves.
#include <gtest/gtest.h>

#include <filesystem>

#include "kit/frame/command_line.h"
#include "kit/frame/json.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::kit {
namespace {

const std::string kBank = "BankFileName b.tvb\n";
const std::string kEnd = "ScriptEnd\n";

class CheckFixTest : public testing::Test {
 protected:
  CheckFixTest() : before_(std::filesystem::current_path()) {
    std::filesystem::current_path(directory_.path());
    std::filesystem::create_directory("in");
    std::filesystem::create_directory("other");
    for (const char* name : {"d.dat", "in/d.dat", "in/x.dat", "other/x.dat", "in/a-b.dat"}) {
      directory_.write(name, "four");
    }
    directory_.write("in/a.wav", test::wav().fmt(1, 16, 22050).data("12345678"));
    directory_.write("fast.wav", test::wav().fmt(1, 16, 2147483648).data("12345678"));
  }
  ~CheckFixTest() override { std::filesystem::current_path(before_); }

  /// Fixes a script. Returns the codes of what is left, separated by blanks.
  std::string fix(const std::string& script) {
    directory_.write("s.txt", script);
    status_ = runCommandLine({"check", "s.txt", "--fix", "--json"}, output_ = {});
    std::string codes;
    const Json document = Json::parse(output_.results);
    for (const Json& one : document["diagnostics"]) {
      codes += (codes.empty() ? "" : " ") + one["code"].get<std::string>();
    }
    return codes;
  }

  test::TemporaryDirectory directory_;
  std::filesystem::path before_;
  Output output_;
  int status_ = 0;
};

TEST_F(CheckFixTest, FixesWhatHasOneSafeFix) {
  struct Row {
    std::string name, script, fixed;
    std::string left = "";
  };
  const std::string rate = " SampleRate 22050";
  const std::string wave = kBank + "WaveFile in\\a.wav";
  const std::string asset = kBank + "UserAsset ";
  for (const Row& row : {
           Row{"last line", asset + "d.dat AssetEnd", asset + "d.dat AssetEnd\n" + kEnd},
           Row{"last line with CR", "BankFileName b.tvb\rUserAsset d.dat AssetEnd",
               "BankFileName b.tvb\rUserAsset d.dat AssetEnd\rScriptEnd\r"},
           Row{"comment at the end", kBank + "; c", kBank + "; c\n" + kEnd},
           Row{"wrong last word", kBank + "ScriptEn", kBank + "ScriptEn", "last-word unknown-word"},
           Row{"no AssetEnd", asset + "d.dat\n", asset + "d.dat\n",
               "unfinished-block no-script-end"},
           Row{"no name", "BankFileName\n", "BankFileName\n", "missing-value no-script-end"},
           Row{"byte order mark", "\xEF\xBB\xBF; c\r\n" + kBank + kEnd, "; c\r\n" + kBank + kEnd},
           Row{"UTF-16", "\xFF\xFE a\n", "\xFF\xFE a\n", "byte-order-mark"},
           Row{"case", asset + "D.Dat AssetEnd\n" + kEnd, asset + "d.dat AssetEnd\n" + kEnd},
           Row{"slash", asset + "in/x.dat AssetEnd\n" + kEnd,
               asset + "in\\x.dat AssetEnd\n" + kEnd},
           Row{"not the slash alone", asset + "in/a-b.dat AssetEnd\n" + kEnd,
               asset + "in/a-b.dat AssetEnd\n" + kEnd, "define-invalid"},
           Row{"taken define", asset + "d.dat AssetEnd UserAsset in/d.dat AssetEnd\n" + kEnd,
               asset + "d.dat AssetEnd UserAsset in/d.dat AssetEnd\n" + kEnd, "define-invalid"},
           Row{"define of two", asset + "in/x.dat AssetEnd UserAsset other/x.dat AssetEnd\n" + kEnd,
               asset + "in\\x.dat AssetEnd UserAsset other/x.dat AssetEnd\n" + kEnd,
               "define-invalid"},
           Row{"rate", wave + " Loop 1 AssetEnd;c\n" + kEnd,
               wave + rate + " Loop 1 AssetEnd;c\n" + kEnd},
           Row{"rate on a line", wave + " ; c\r\n\tLoop 1\r\nAssetEnd\r\n" + kEnd,
               wave + " ; c\r\n\tSampleRate 22050\r\n\tLoop 1\r\nAssetEnd\r\n" + kEnd},
           Row{"rate alone", wave + "\n\n AssetEnd\n" + kEnd,
               wave + "\n\n    " + rate + "\n AssetEnd\n" + kEnd},
           Row{"rate that doesn't fit", kBank + "WaveFile fast.wav AssetEnd\n" + kEnd,
               kBank + "WaveFile fast.wav AssetEnd\n" + kEnd, "sample-rate-missing"},
           Row{"allowed", "; tavkit: allow no-script-end\n" + kBank,
               "; tavkit: allow no-script-end\n" + kBank},
           Row{"one after another", kBank + "WaveFile IN/A.WAV AssetEnd",
               wave + rate + " AssetEnd\n" + kEnd},
       }) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(fix(row.script), row.left);
    EXPECT_EQ(directory_.read("s.txt"), row.fixed);
    EXPECT_EQ(fix(row.fixed), row.left);
    EXPECT_EQ(directory_.read("s.txt"), row.fixed);
  }
}

TEST_F(CheckFixTest, PrintsADiffAndWritesNothing) {
  const std::string lines = ";1\n;2\n;3\n;4\n;5\n;6\n;7\n";
  const std::string script = "\xEF\xBB\xBF" + kBank + lines + "UserAsset d.dat AssetEnd";
  directory_.write("s t.txt", script);
  directory_.write("good.txt", kBank + kEnd);
  EXPECT_EQ(runCommandLine({"check", "--fix=dry", "s t.txt", "good.txt"}, output_), 0);
  EXPECT_EQ(output_.results,
            "--- s t.txt\t\n+++ s t.txt\t\n"
            "@@ -1,4 +1,4 @@\n-\xEF\xBB\xBF" +
                kBank + "+" + kBank +
                " ;1\n ;2\n ;3\n"
                "@@ -6,4 +6,5 @@\n ;5\n ;6\n ;7\n-UserAsset d.dat AssetEnd\n"
                "\\ No newline at end of file\n+UserAsset d.dat AssetEnd\n+ScriptEnd\n");
  EXPECT_EQ(output_.messages, "0 errors, 0 warnings\n");
  EXPECT_EQ(directory_.read("s t.txt"), script);
  EXPECT_EQ(runCommandLine({"check", "--fix=dry", "--json", "s t.txt"}, output_ = {}), 2);
}

TEST_F(CheckFixTest, FixesAllScriptsOrNone) {
  directory_.write("one.txt", kBank);
  EXPECT_EQ(runCommandLine({"check", "--fix", "one.txt", "two.txt"}, output_), 2);
  EXPECT_EQ(directory_.read("one.txt"), kBank);
  directory_.write("two.txt", kBank + "Bogus");
  EXPECT_EQ(runCommandLine({"check", "--fix", "one.txt", "two.txt"}, output_ = {}), 1);
  EXPECT_EQ(directory_.read("one.txt"), kBank + kEnd);
  EXPECT_EQ(output_.messages, "one.txt: 1 problem fixed\n2 errors, 1 warning\n");
}

}  // namespace
}  // namespace tavrel::kit
