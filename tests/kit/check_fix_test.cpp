// What `tavkit check --fix` changes in a script, and what it leaves.
#include "tests/kit/command_test.h"
#include "tests/support/sound_builder.h"

namespace tavrel::kit {
namespace {

const std::string kBank = "BankFileName b.tvb\n";
const std::string kEnd = "ScriptEnd\n";

class CheckFixTest : public CommandTest {
 protected:
  CheckFixTest() {
    for (const char* name : {"d.dat", "in/d.dat", "in/x.dat", "other/x.dat", "in/a-b.dat"}) {
      write(name, "four");
    }
    write("in/a.wav", test::wav().fmt(1, 16, 22050).data("12345678"));
    write("fast.wav", test::wav().fmt(1, 16, 2147483648).data("12345678"));
  }
};

TEST_F(CheckFixTest, FixesWhatHasOneSafeFix) {
  const std::string rate = " SampleRate 22050";
  const std::string wave = kBank + "WaveFile in\\a.wav";
  const std::string asset = kBank + "UserAsset ";
  const struct {
    std::string name, script;
    std::string fixed;  ///< empty if nothing changes
    std::string left = "";
  } rows[] = {
      {"last line", asset + "d.dat AssetEnd", asset + "d.dat AssetEnd\n" + kEnd},
      {"last line with CR", "BankFileName b.tvb\rUserAsset d.dat AssetEnd",
       "BankFileName b.tvb\rUserAsset d.dat AssetEnd\rScriptEnd\r"},
      {"comment at the end", kBank + "; c", kBank + "; c\n" + kEnd},
      {"wrong last word", kBank + "ScriptEn", "", "last-word 2:1 unknown-word 2:1"},
      {"no AssetEnd", asset + "d.dat\n", "", "unfinished-block 2:1 no-script-end 2:11"},
      {"no second name", kBank + "BankFileName\n", "",
       "second-bank-name 2:1 missing-value 2:1 no-script-end 2:1"},
      {"byte order mark", "\xEF\xBB\xBF; c\r\n" + kBank + kEnd, "; c\r\n" + kBank + kEnd},
      {"UTF-16", "\xFF\xFE a\n", "", "byte-order-mark 1:1"},
      {"case", asset + "D.Dat AssetEnd\n" + kEnd, asset + "d.dat AssetEnd\n" + kEnd},
      {"slash", asset + "in/x.dat AssetEnd\n" + kEnd, asset + "in\\x.dat AssetEnd\n" + kEnd},
      {"not the slash alone", asset + "in/a-b.dat AssetEnd\n" + kEnd, "", "define-invalid 2:11"},
      {"taken define", asset + "d.dat AssetEnd UserAsset in/d.dat AssetEnd\n" + kEnd, "",
       "define-invalid 2:36"},
      {"define of two", asset + "in/x.dat AssetEnd UserAsset other/x.dat AssetEnd\n" + kEnd,
       asset + "in\\x.dat AssetEnd UserAsset other/x.dat AssetEnd\n" + kEnd, "define-invalid 2:39"},
      {"rate", wave + " Loop 1 AssetEnd;c\n" + kEnd, wave + rate + " Loop 1 AssetEnd;c\n" + kEnd},
      {"rate on a line", wave + " ; c\r\n\tLoop 1\r\nAssetEnd\r\n" + kEnd,
       wave + " ; c\r\n\tSampleRate 22050\r\n\tLoop 1\r\nAssetEnd\r\n" + kEnd},
      {"rate alone", wave + "\n\n AssetEnd\n" + kEnd,
       wave + "\n\n    " + rate + "\n AssetEnd\n" + kEnd},
      {"rate that doesn't fit", kBank + "WaveFile fast.wav AssetEnd\n" + kEnd, "",
       "sample-rate-missing 2:10"},
      {"allowed", "; tavkit: allow no-script-end\n" + kBank, ""},
      {"one after another", kBank + "WaveFile IN/A.WAV AssetEnd",
       wave + rate + " AssetEnd\n" + kEnd},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    write("s.txt", row.script);
    for (const char* time : {"first", "second"}) {
      SCOPED_TRACE(time);
      run({"check", "s.txt", "--fix", "--json"});
      EXPECT_EQ(problems(), row.left);
      EXPECT_EQ(folder_.read("s.txt"), row.fixed.empty() ? row.script : row.fixed);
    }
  }
}

TEST_F(CheckFixTest, PrintsADiffAndWritesNothing) {
  const std::string script =
      "\xEF\xBB\xBF" + kBank + ";1\n;2\n;3\n;4\n;5\n;6\n;7\nUserAsset d.dat AssetEnd";
  write("s t.txt", script);
  write("good.txt", kBank + kEnd);
  EXPECT_EQ(run({"check", "--fix=dry", "s t.txt", "good.txt"}), 0);
  EXPECT_EQ(output_.results,
            "--- s t.txt\t\n+++ s t.txt\t\n"
            "@@ -1,4 +1,4 @@\n-\xEF\xBB\xBF" +
                kBank + "+" + kBank +
                " ;1\n ;2\n ;3\n"
                "@@ -6,4 +6,5 @@\n ;5\n ;6\n ;7\n-UserAsset d.dat AssetEnd\n"
                "\\ No newline at end of file\n+UserAsset d.dat AssetEnd\n+ScriptEnd\n");
  EXPECT_EQ(output_.messages, "0 errors, 0 warnings\n");
  EXPECT_EQ(folder_.read("s t.txt"), script);
  EXPECT_EQ(run({"check", "--fix=dry", "--json", "s t.txt"}), 2);
}

TEST_F(CheckFixTest, FixesAllScriptsOrNone) {
  write("one.txt", kBank);
  EXPECT_EQ(run({"check", "--fix", "one.txt", "two.txt"}), 2);
  EXPECT_EQ(folder_.read("one.txt"), kBank);
  write("two.txt", kBank + "Bogus");
  EXPECT_EQ(run({"check", "--fix", "one.txt", "two.txt"}), 1);
  EXPECT_EQ(folder_.read("one.txt"), kBank + kEnd);
  EXPECT_EQ(output_.messages, "one.txt: 1 problem fixed\n2 errors, 1 warning\n");
}

}  // namespace
}  // namespace tavrel::kit
