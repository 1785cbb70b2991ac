// Scripts that `tavkit new` writes: each block and comment, links, scripts that are there already,
// and whether what is listed passes `tavkit check` and is packed whole.
#include "kit/check/check_script.h"
#include "tests/kit/command_test.h"
#include "tests/support/packed_script.h"

namespace tavrel::kit {
namespace {

using test::mono;
using testing::HasSubstr;
using testing::Not;

class NewTest : public CommandTest {};

std::string wavOf(std::size_t samples) {
  return test::wav().fmt(mono, 16, 22050).data(std::string(2 * samples, 'x'));
}

TEST_F(NewTest, WritesABlockForEachFileByItsContent) {
  const std::string ab = test::Bytes().be16(1).be16(2);
  write("in/b.dat", "opaque");
  write("in/a.dat", wavOf(2));
  const test::AiffBuilder aif = test::aiff().comm(mono, 2, 16);
  write("in/sub/loop.aif", test::AiffBuilder(aif).mark({{1, 0}, {2, 2}}).inst({1, 1, 2}).ssnd(ab));
  write("in/sub/plain.aif", test::AiffBuilder(aif).ssnd(ab));
  write("in/sub/smpl.wav", test::WavBuilder(test::wav().fmt(mono, 16, 4294967295).data(ab))
                               .chunk("smpl", test::Bytes().fill(28).le32(1).fill(28)));
  write("in/byte.wav", test::wav().fmt(mono, 8, 11025).data("012"));
  write("in/one.wav", wavOf(1));
  write("in/Theme", test::midi().track(test::events().tempo(0, 9).endOfTrack(1)));
  write("in/game.tvb", "the bank isn't listed");
  write("in/sub/game.h", "nor is the header");
  write("in/.DS_Store", "nor is a hidden file");
  write("in/.git/config", "nor what is in a hidden folder");
  write("in/sub/.in/c.dat", "but it is if the folder is named");
  fs::create_directory("to");
  EXPECT_EQ(run({"new", "in", "in/sub/.in", "in/b.dat", "-o", "to/game.txt", "--adpcm"},
                {"--bank-dir", "in", "--header-dir", "in/sub"}),
            0);
  EXPECT_EQ(output_.messages + output_.results, "");
  EXPECT_EQ(folder_.read("to/game.txt"),
            "BankFileName game.tvb\n\n"
            "MidiFileType0 ..\\in\\Theme\nAssetEnd\n\n"
            "WaveFile ..\\in\\a.dat\n    SampleRate 22050\n    Adpcm 1\nAssetEnd\n\n"
            "UserAsset ..\\in\\b.dat\nAssetEnd\n\n"
            "WaveFile ..\\in\\byte.wav\n    SampleRate 11025\nAssetEnd\n\n"
            "WaveFile ..\\in\\one.wav\n    SampleRate 22050\nAssetEnd\n\n"
            "UserAsset ..\\in\\sub\\.in\\c.dat\nAssetEnd\n\n"
            "WaveFile ..\\in\\sub\\loop.aif\n    SampleRate 44100\n    Loop 1\nAssetEnd\n\n"
            "WaveFile ..\\in\\sub\\plain.aif\n    SampleRate 44100\n    Adpcm 1\nAssetEnd\n\n"
            "WaveFile ..\\in\\sub\\smpl.wav\n    SampleRate -1\n    Loop 1\nAssetEnd\n\n"
            "ScriptEnd\n");
}

/// Returns a name as a comment shows it.
std::string shown(const std::string& name) {
  std::string result;
  for (const char c : name) {
    result += c == '/' ? "\\" : c == '\n' || c == '\xFF' ? "\uFFFD" : std::string(1, c);
  }
  return result;
}

TEST_F(NewTest, ExplainsWhyAFileIsNotListed) {
  struct Row {
    std::string name, content;
    const char* reason;  // null if it is listed
    std::string fix = {};
  };
  const std::string aif = test::aiff().comm(mono, 2, 16).ssnd("abcd");
  const std::string space = "a space ends a name in a script";
  std::vector<Row> rows{
      {"a b.wav", wavOf(2), space.c_str(), "mv -n 'a b.wav' a_b.wav"},
      {"c;d.aiff", aif, "a semicolon ends a name in a script", "mv -n 'c;d.aiff' c_d.aif"},
      {"e f/g.wav", wavOf(2), space.c_str(), "mv -n 'e f' e_f"},
      {"q r/t", "", space.c_str(), "mv -n 'q r' q_r_2"},
      {"q_r/t", "", nullptr},
      {"NAME.wav", wavOf(2), nullptr},
      {"h/name.wav", wavOf(2), "that of NAME.wav already", "name_3.wav"},
      {"name_2.wav", wavOf(2), nullptr},
      {"filename", "the define ends with _", nullptr},
      {"bank_data.size", "", "that of the bank already", "mv -n bank_data.size bank_data_2.size"},
      {"assetend", "", "a word of the script language", "mv -n assetend assetend_2"},
      {"i-j.wav", wavOf(2), "S_I-J_WAV", "mv -n i-j.wav i_j.wav"},
      {"k.opaque", "", "has opaqu alone", "mv -n k.opaque k.opaqu"},
      {"l.wave", wavOf(2), "l.wav isn't there", "mv -n l.wave l.wav"},
      {std::string(80, 'm') + ".wav", wavOf(2), "84 characters",
       ' ' + std::string(67, 'm') + ".wav"},
      {"o.wav", aif, "this is an AIFF file", "mv -n o.wav o.aif"},
      {"n.AIF", wavOf(2), "this is a WAV file", "mv -n n.AIF n.wav"},
      {"p-.flac", "fLaC", "this is a FLAC file", "sox -t flac p-.flac -b 16 p_.wav"},
      {"p_.mp3", "ID3", "this is an MP3 file", "ffmpeg -nostdin -i p_.mp3 -c:a pcm_s16le p__2.wav"},
      {"v.aif", test::aiff().comm(mono, 1, 24).ssnd("123"), "24 bits", "sox v.aif -b 16 v_16.aif"},
      {"r.wav", "", "the file has 0 bytes"},
      {"u.mid", test::midi(96, 1).track(test::events().endOfTrack()), "of type 1", "python3 -c"},
  };
#ifndef _WIN32
  const std::string deep = std::string(200, 'd') + '/';
  const std::string longName = deep + deep + deep + deep + deep + std::string(20, 'n');
  rows.insert(rows.end(),
              {{longName, "", "has 1025 characters", ' ' + std::string(20, 'n')},
               {longName.substr(1), "", nullptr},
               {"name.wav", wavOf(2), "that of NAME.wav already", "mv -n name.wav name_4.wav"},
               {"w\\x.wav", wavOf(2), "a backslash separates folders", "mv -n 'w\\x.wav' w_x.wav"},
               {"y\n;'z.wav", wavOf(2), "control character", "mv -n $'y\\012;\\'z.wav' y___z.wav"},
               {"\xFF.wav", wavOf(2), "S_\uFFFD_WAV", "mv -n $'\\377.wav' _.wav"}});
#endif
  for (const Row& row : rows) {
    write(row.name, row.content);
  }
  EXPECT_EQ(run({"new", ".", "-o", "s.txt"}), 1);
  const std::string script = folder_.read("s.txt");
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    if (row.reason == nullptr) {
      EXPECT_THAT(script, HasSubstr(' ' + shown(row.name) + '\n'));
      continue;
    }
    const std::size_t start = script.find("; Not listed: " + shown(row.name) + ": ");
    ASSERT_NE(start, std::string::npos);
    const std::string comment = script.substr(start, script.find("\n\n", start) - start);
    EXPECT_THAT(comment, HasSubstr(row.reason));
    EXPECT_THAT(comment, HasSubstr(row.fix));
    EXPECT_EQ(row.fix.empty(), comment.find('\n') == std::string::npos);
    EXPECT_THAT(output_.messages, HasSubstr("tavkit: not listed: " + shown(row.name) + ": "));
  }
}

TEST_F(NewTest, ListsWhatPassesCheckAndIsPackedWhole) {
  const test::SoundFiles files = test::soundFiles();
  for (const auto& [name, file] : files) {
    write(name, file.bytes);
  }
  for (const char* option : {"--adpcm", "--prefix=P"}) {
    SCOPED_TRACE(option);
    EXPECT_EQ(run({"new", ".", "-o", "s.txt", option}), 1);
    const std::string script = folder_.read("s.txt");
    for (const Diagnostic& one : checkScript({.scriptPath = "s.txt"}, {}).diagnostics) {
      EXPECT_EQ(one.code->severity, Severity::warning) << one.message;
      EXPECT_THAT((std::vector{"name-cut", "case-differs", "same-file-twice", "adpcm-loop",
                               "sample-rate-missing", "sample-rate-differs", "number-range"}),
                  Not(testing::Contains(one.code->name)));
    }
    const test::Wanted wanted = test::wantedBy(script);
    EXPECT_GT(wanted.files.size(), 25);
    EXPECT_TRUE(runTool({"s.txt"}));
    EXPECT_EQ(test::lossOfAssets(folder_.read("s.tvb"), wanted.files, files), "");
    EXPECT_EQ(run({"verify", "s.tvb"}), 0) << output_.results;
    fs::remove("s.txt");
  }
}

TEST_F(NewTest, AddsToAScript) {
  const std::string bank = "BankFileName s.tvb ";
  const std::string added = "UserAsset b.dat\nAssetEnd\n";
  const std::string a = "UserAsset a.dat AssetEnd";
  const std::string old = "\nUserAsset sub\\b.dat AssetEnd\n; Not listed: b.dat: old\n";
  const struct {
    const char* name;
    std::string before, added, after = "";
    int code = 0;
    std::string lineEnd = "";  ///< that is added at the end
  } rows[] = {
      {"other spelling, ScriptEnd in a comment",
       bank + "; ScriptEnd\n\nUserAsset ./a.dat\nAssetEnd\n\n", added + '\n',
       "  scriptend\nrest\n"},
      {"no ScriptEnd, no line end", bank + "UserAsset sub\\..\\a.dat AssetEnd", "\n\n" + added},
      {"CRLF", bank + "\r\n" + a + "\r\n", "\r\nUserAsset b.dat\r\nAssetEnd\r\n\r\n",
       "ScriptEnd\r\n"},
      {"one line", bank + a + ' ', "\n\n" + added + '\n', "ScriptEnd", 0, "\n"},
      {"nothing new", bank + a + " UserAsset b.dat AssetEnd\n", ""},
      {"the define of a missing file", bank + "UserAsset no\\b.dat AssetEnd " + a + '\n',
       "\n; Not listed: b.dat: its define, S_B_DAT, is that of no\\b.dat already\n"
       ";   mv -n b.dat b_2.dat\n",
       "", 1},
      {"a define that is taken", bank + old + a + '\n', "", "", 1},
  };
  for (const char* name : {"a.dat", "b.dat", "sub/b.dat"}) {
    write(name, name);
  }
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    write("s.txt", row.before + row.after);
    EXPECT_EQ(run({"new", "a.dat", "b.dat", "s.txt", "-o", "s.txt", "--add"}), row.code)
        << output_.messages;
    EXPECT_EQ(folder_.read("s.txt"), row.before + row.added + row.after + row.lineEnd);
  }
}

TEST_F(NewTest, RefusesWhatItCannotWrite) {
  write("a.dat", "a");
  write("old.txt", "old");
  write("open.txt", "BankFileName s.tvb\nUserAsset a.dat\n");
  expectAnswers(
      {"new", "a.dat"},
      {{{}, "no script to write"},
       {{"-o", "old.txt"}, "old.txt exists already; --add adds to it"},
       {{"-o", "no/s.txt"}, "can't write no/s.txt"},
       {{"-o", "s.txt", "none.dat"}, "none.dat: there is no such file"},
       {{"-o", "1.txt"}, "all defines begin with 1_"},
       {{"-o", "a-b.txt"}, "Name the bank a_b.tvb"},
       {{"-o", ".txt"}, "a bank can't be called "},
       {{"-o", "s.txt", "--bank", "a b"}, "a bank can't be called a b"},
       {{"-o", "s.txt", "--bank", "x/y"}, "goes into the header"},
       {{"-o", "s.txt", "--bank", std::string(77, 'n')}, "more than 79 characters"},
       {{"-o", "s.h"}, "the header and the script are one file"},
       {{"-o", "s.txt", "--prefix", "1"}, "Set another prefix"},
       {{"-o", "s.txt", "--add"}, "there is no such file"},
       {{"-o", "old.txt", "--add"}, "line 1, column 1: old is"},
       {{"-o", "open.txt", "--add"}, "line 2, column 1: a.dat: the block has no AssetEnd"},
       {{"-o", "old.txt", "--add", "--bank", "x"}, "--bank is for new scripts"}});
  EXPECT_EQ(folder_.read("old.txt"), "old");
}

#ifndef _WIN32
TEST_F(NewTest, WalksEachFolderOnce) {
  write("in/real/a.dat", "1");
  write("other/b.dat", "2");
  const std::map<std::string, std::string> links{{"in/loop", "../in"},      {"in/up", ".."},
                                                 {"in/real/self", "."},     {"other/back", "../in"},
                                                 {"in/aaa", "../other"},    {"in/zzz", "../other"},
                                                 {"in/z.dat", "real/a.dat"}};
  for (const auto& [name, target] : links) {
    fs::create_symlink(target, name);
  }
  EXPECT_EQ(run({"new", "in", "in/loop/real/self", "-o", "in/s.txt", "--bank", "x"}), 1);
  EXPECT_EQ(folder_.read("in/s.txt"),
            "BankFileName x.tvb\n\nUserAsset aaa\\b.dat\nAssetEnd\n\n"
            "UserAsset real\\a.dat\nAssetEnd\n\n"
            "; Not listed: z.dat: the file is in the bank already, listed as real\\a.dat\n\n"
            "ScriptEnd\n");
}
#endif

}  // namespace
}  // namespace tavrel::kit
