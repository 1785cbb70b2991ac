// tavkit deps: which names it lists, and when it has no answer. deps_builds_test.py has the names
// that it refuses.
#include "tests/kit/command_test.h"

namespace tavrel::kit {
namespace {

class DepsTest : public CommandTest {
 protected:
  int deps(const Lines& arguments) { return run({"deps", "-C", folder_.path()}, arguments); }
};

// The script has a mistyped keyword, a block that never ends, and a file that it lists twice.
TEST_F(DepsTest, ListsWhatARunOpens) {
  write("s.txt",
        "BankFileName old.tvb BankFileName b.tvb\nWaveFile a.wave Lop 1 AssetEnd\n"
        "WaveFile b.aif AssetEnd\nWaveFile c.aiff AssetEnd\nUserAset a%b AssetEnd\n"
        "UserAsset b.aif\nMidiFileType0 m.mid#$:1 AssetEnd\nScriptEnd UserAsset z\n");
  const std::string prerequisites =
      ": \\\n  s.txt \\\n  a.wav \\\n  b.aif \\\n  c.aif \\\n  a%b \\\n  m.mid\\#$$\\:1\n"
      "\na.wav:\n\nb.aif:\n\nc.aif:\n\nm.mid\\#$$\\:1:\n";
  EXPECT_EQ(deps({"s.txt", "--bank-dir", "o u"}), 0);
  EXPECT_EQ(output_.results, "o\\ u/b.tvb" + prerequisites);
  write("s.d", "old");
  EXPECT_EQ(deps({"s.txt", "--target", "t", "-o", "s.d"}), 0);
  EXPECT_EQ(output_.results, "");
  EXPECT_EQ(folder_.read("s.d"), "t" + prerequisites);
}

TEST_F(DepsTest, ExitCode2) {
  write("none.txt", "UserAsset a AssetEnd\nScriptEnd\n");
  write("bank.txt", "BankFileName b.tvb\nUserAsset gone AssetEnd\nScriptEnd\n");
  write("odd.txt", "BankFileName b.tvb\nUserAsset a&b AssetEnd\nScriptEnd\n");
  expectAnswers({"deps", "-C", folder_.path()},
                {{{"none.txt"}, "none.txt doesn't name its bank"},
                 {{"odd.txt"}, "the name \"a&b\" has the character &"},
                 {{"none.txt", "--target", "a%b"}, "the name \"a%b\" has the character %"},
                 {{"none.txt", "--target", "b", "-o", "./none.txt"}, "would replace ./none.txt"},
                 {{"bank.txt", "-o", "b.tvb"}, "would replace b.tvb"},
                 {{"bank.txt", "-o", "b.h"}, "would replace b.h"},
                 {{"bank.txt", "-o", "gone"}, "would replace gone"},
                 {{"none.txt", "--target", "b", "-o", "no/b.d"}, "can't write no/b.d"},
                 {{"missing.txt"}, "can't read missing.txt"}});
}

}  // namespace
}  // namespace tavrel::kit
