// Banks that are extracted with a script, and packed from it again by the tool.
#include <regex>

#include "tests/kit/command_test.h"
#include "tests/support/bank_builder.h"
#include "tests/support/packed_script.h"
#include "tests/support/script_generator.h"

namespace tavrel::kit {
namespace {

using test::BankAsset;
using testing::HasSubstr;

class ExtractScriptTest : public CommandTest {
 protected:
  /// Makes an empty folder out, and a folder was with a bank and its header.
  void pack(const std::vector<BankAsset>& assets, const Lines& defines) {
    for (const char* folder : {"was", "out", "files"}) {
      fs::remove_all(folder);
    }
    fs::create_directory("out");
    write("was/sfx.tvb", test::bankOf(assets));
    write("was/sfx.h", test::headerOf(defines));
  }

  int extract(const std::string& files) {
    return run({"extract", "was/sfx.tvb", "-o", files, "--script", "out/s.txt"});
  }

  /// Packs out/s.txt as its comment says.
  bool packAgain() {
    std::smatch prefix;
    const std::string text = folder_.read("out/s.txt");
    fs::current_path(folder_.path("out"));
    const bool isPacked =
        std::regex_search(text, prefix, std::regex("\n;.* HeaderPrefix ('?)(.*)\\1\n"))
            ? runTool({"s.txt", "HeaderPrefix", prefix[2].str().c_str()})
            : runTool({"s.txt"});
    fs::current_path(folder_.path());
    return isPacked;
  }

  /// Returns a header without its time stamp.
  [[nodiscard]] std::string header(const std::string& name) const {
    return std::regex_replace(folder_.read(name), std::regex("// Rev:.*"), "");
  }

  /// Returns what a bank and its header have of each asset: the define, the record without its
  /// offset, the blob.
  [[nodiscard]] Lines contents(const std::string& bankName, const std::string& headerName) const {
    const std::string bytes = folder_.read(bankName);
    const std::string defines = folder_.read(headerName);
    tavrel_bank bank;
    EXPECT_EQ(tavrel_bank_open(&bank, bytes.data(), bytes.size()), TAVREL_OK);
    Lines assets;
    tavrel_asset asset;
    for (std::uint32_t id = 0; tavrel_bank_asset(&bank, id, &asset) != 0; ++id) {
      std::smatch define;
      const std::regex line("#define\t\t(.*)\t\t\t" + std::to_string(id) + "\n");
      std::regex_search(defines, define, line);
      const std::string record = bytes.substr(4 + 44 * id, 44).replace(4, 4, "");
      assets.push_back(define.str(1) + record + bytes.substr(asset.offset, asset.size));
    }
    return assets;
  }

  /// Extracts a bank and packs it again. Expects that nothing differs but what was named, and
  /// that what was named differs.
  void judge(const std::string& bank, const std::string& headerName) {
    ASSERT_EQ(run({"extract", "was/" + bank, "-o", "out/files", "--script", "out/s.txt"}), 0)
        << output_.messages;
    SCOPED_TRACE(output_.messages + folder_.read("out/s.txt"));
    ASSERT_TRUE(packAgain());
    const Lines old = contents("was/" + bank, "was/" + headerName);
    const Lines now = contents("out/" + bank, "out/" + headerName);
    ASSERT_EQ(now.size(), old.size());
    bool isSame = true;
    for (std::size_t id = 0; id < old.size(); ++id) {
      const bool isNamed =
          output_.messages.find("(asset " + std::to_string(id) + ") can't") != std::string::npos;
      EXPECT_EQ(old[id] != now[id], isNamed) << "asset " << id;
      isSame = isSame && !isNamed;
    }
    if (isSame) {
      EXPECT_TRUE(folder_.read("was/" + bank) == folder_.read("out/" + bank));
      EXPECT_EQ(header("was/" + headerName), header("out/" + headerName));
      ++same_;
    }
  }

  int same_ = 0;
};

constexpr std::uint32_t wave = 1;
constexpr std::uint32_t userAsset = 6;

TEST_F(ExtractScriptTest, WritesFilesAndStatementsForAllThatAScriptCanState) {
  const std::string song = test::midi().track(test::events().tempo(0, 500000).endOfTrack());
  pack({{wave, "abcdef", {22050, 1, 16, 0, 1, 0x7FFFFFFF}},
        {wave, "\x80\x01", {-1, 1, 8, 5, 0, 2}},
        {wave, "abc", {1, 0, 16}},
        {wave, "", {1, 0, 4}},
        {wave, "abc", {1, 1, 4, 0, 0, 6}},
        {wave, "abc", {1, 0, 12}},
        {2, song, {96, 1, 2, 3, 0, 500000}},
        {3, "tone", {1}},
        {4, "four"},
        {5, ""},
        {userAsset, "y", {0, -2147483647 - 1, 0, 0, 0, 0, 0, 7}}},
       {"BELL_AIF", "A_B_WAV", "LONG_WAVE", "E_D.WAV", "L_WAV", "PLAIN_", "S_MIDI", "M_MTB",
        "T_DOTS.", "F_EXTEN", "USER_"});
  ASSERT_EQ(extract("files"), 0);
  EXPECT_EQ(output_.messages, "tavkit: a_b.wav: a sample rate of -1 becomes 22050 Hz\n");
  EXPECT_EQ(folder_.read("out/s.txt"),
            "; Packs sfx.tvb from its extracted files. Run tavrel in the folder of this script:\n"
            ";   tavrel s.txt\n\nBankFileName sfx.tvb\n\n"
            "WaveFile ..\\files\\bell.aif\n  SampleRate 22050\n  Loop 1\nAssetEnd\n\n"
            "WaveFile ..\\files\\a_b.wav\n  RandomPitchAmount 5\n  SampleRate -1\n  Loop 1\n"
            "AssetEnd\n\nWaveFile ..\\files\\long.wave\n  SampleRate 1\nAssetEnd\n\n"
            "WaveFile ..\\files\\e.d.wav\n  SampleRate 1\n  Adpcm 1\nAssetEnd\n\n"
            "WaveFile ..\\files\\l.wav\n  SampleRate 1\n  Loop 1\nAssetEnd\n\n"
            "WaveFile ..\\files\\plain\n  SampleRate 1\nAssetEnd\n\n"
            "MidiFileType0 ..\\files\\s.midi\n  Volume 1\n  Loop 3\n  GmMode 2\nAssetEnd\n\n"
            "MidiToneBank ..\\files\\m.mtb\n  BankType Melodic\nAssetEnd\n\n"
            "FxProgramBank ..\\files\\t.dots.bin\nAssetEnd\n\n"
            "FxOutputBank ..\\files\\f.exten\nAssetEnd\n\n"
            "UserAsset ..\\files\\user\n  Parameter1 -2147483648\n  Parameter7 7\nAssetEnd\n\n"
            "ScriptEnd\n");
  EXPECT_EQ(folder_.read("files/a_b.wav").substr(44, 2), std::string("\0\x81", 2));
  EXPECT_EQ(folder_.read("files/long.wav").substr(44, 3), "abc");
  const std::string bell = folder_.read("files/bell.aif");
  EXPECT_EQ(bell.substr(bell.size() - 6), "badcfe");
  ASSERT_TRUE(packAgain());
  EXPECT_TRUE(folder_.read("out/sfx.tvb") == folder_.read("was/sfx.tvb"));
  EXPECT_EQ(contents("out/sfx.tvb", "out/sfx.h"), contents("was/sfx.tvb", "was/sfx.h"));
}

TEST_F(ExtractScriptTest, NamesWhatCannotComeOutTheSame) {
  const std::string noTempo = test::midi().track(test::events().endOfTrack());
  const struct {
    const char* define;
    BankAsset asset;
    const char* note;
    bool isLeftOut = false;
  } rows[] = {
      {"A_DAT", {77, "x"}, "SFX_A_DAT (asset 0) is left out: no statement of a script", true},
      {"A_WAV", {wave, "", {1, 0, 16}}, "is left out", true},
      {"A_WAV", {wave, "abc", {1, 1, 16, 0, 1, 2}}, "is left out", true},
      {"A_WAV", {wave, "ab", {1, 2, 16}}, "is left out", true},
      {"A_WAV", {wave, "ab", {1, 0, 16, 0, 0, 0, 1}}, "is left out", true},
      {"A_WAV", {wave, "ab", {1, 0, -1}}, "is left out", true},
      {"A_MTB", {3, "x", {2}}, "is left out", true},
      {"A_FXO", {5, "x", {1}}, "is left out", true},
      {"A_MID", {2, "MThd", {96, 127, 1}}, "is left out", true},
      {"A_MID", {2, noTempo, {96, 127, 1}}, "is left out", true},
      {"A_WAV", {wave, "abcd", {1, 1, 16, 0, 1, 2}}, "its define becomes SFX_A_AIF"},
      {"A_AIF", {wave, "abc", {1, 0, 24}}, "its define becomes SFX_A_WAV"},
      {"A;B_DAT", {userAsset, "x"}, "its define becomes SFX_0000_DAT"},
      {"CON_DAT", {userAsset, "x"}, "its define becomes SFX_0000_DAT"},
      {"a_DAT", {userAsset, "x"}, "its define becomes SFX_A_DAT"},
      {"S_TXT", {userAsset, "x"}, "its define becomes SFX_S_0_TXT"},
      {"SFX_H", {userAsset, "x"}, "its define becomes SFX_SFX_0_H"},
      {"A_WAV", {wave, "\x77\x77\x77\x77", {1, 0, 4}}, "its compressed bytes differ: samples"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.note);
    pack({row.asset, {userAsset, "z"}}, {row.define, "Z_DAT"});
    ASSERT_EQ(extract("out"), 0);
    EXPECT_THAT(output_.messages, HasSubstr(row.note));
    EXPECT_THAT(output_.messages, Not(HasSubstr("asset 1")));
    ASSERT_TRUE(packAgain());
    EXPECT_EQ(contents("out/sfx.tvb", "out/sfx.h").size(), row.isLeftOut ? 1 : 2);
  }
}

TEST_F(ExtractScriptTest, FindsANameWhereAnotherAssetHasThatOfTheId) {
  pack({{userAsset, "x"}, {userAsset, "y"}}, {"A;B_DAT", "0000_DAT"});
  ASSERT_EQ(extract("out"), 0);
  EXPECT_THAT(output_.messages, HasSubstr("(asset 0) can't come out the same: its define becomes "
                                          "SFX_0000_3_DAT\n"));
  EXPECT_EQ(folder_.read("out/0000_3.dat"), "x");
}

TEST_F(ExtractScriptTest, NamesFilesFromItsOwnFolder) {
  pack({{wave, "abc", {1, 1, 4, 0, 0, 6}}}, {"A_WAV"});
  ASSERT_EQ(run({"extract", "was/sfx.tvb", "-o", "out/../files", "--script", "s.txt"},
                {"--channels", "2"}),
            0);
  EXPECT_THAT(folder_.read("s.txt"), HasSubstr("WaveFile files\\a.wav\n"));
  const std::string file = folder_.read("files/a.wav");
  const std::string loop = file.substr(file.find("smpl") + 8 + 36, 16);
  EXPECT_EQ(loop.substr(8), test::Bytes().le32(0).le32(2).str()) << "3 frames of 2 samples";
}

TEST_F(ExtractScriptTest, TellsFilesFromKeywords) {
  pack({{userAsset, "x"}, {userAsset, "y"}, {userAsset, "z"}},
       {"ASSETEND_", "LOOP_", "BANKFILENAME_"});
  ASSERT_EQ(extract("out"), 0);
  EXPECT_EQ(run({"check", "-C", "out", "s.txt"}), 0) << output_.results;
  ASSERT_TRUE(packAgain());
  EXPECT_EQ(contents("out/sfx.tvb", "out/sfx.h"), contents("was/sfx.tvb", "was/sfx.h"));
}

TEST_F(ExtractScriptTest, QuotesNamesInItsCommand) {
  pack({{userAsset, "x"}}, {"A_DAT"});
  folder_.write("was/sfx.h",
                std::regex_replace(folder_.read("was/sfx.h"), std::regex("SFX_"), "A;$$(B)_"));
  ASSERT_EQ(run({"extract", "was/sfx.tvb", "-o", "files", "--script", "out/$s 1.txt"}), 0);
  EXPECT_THAT(folder_.read("out/$s 1.txt"),
              HasSubstr("\n;   tavrel '$s 1.txt' HeaderPrefix 'A;$(B)'\n"));
}

TEST_F(ExtractScriptTest, AssetsWithOneDefineShareAFileThatServesThem) {
  const std::string silence(32, '\0');  // compressed, each pair of samples is 0x80
  pack({{wave, std::string(8, '\x80'), {1, 0, 4}},
        {wave, silence, {22050, 0, 16}},
        {wave, silence, {22050, 0, 16, 9}},
        {wave, "differs!", {22050, 0, 16}}},
       {"A_WAV", "A_WAV", "A_WAV", "A_WAV"});
  ASSERT_EQ(extract("files"), 0);
  EXPECT_EQ(output_.messages,
            "tavkit: SFX_A_WAV (asset 3) can't come out the same: its define becomes "
            "SFX_A_3_WAV\n");
  EXPECT_EQ(filesIn("files").size(), 2);
  ASSERT_TRUE(packAgain());
  EXPECT_TRUE(folder_.read("out/sfx.tvb") == folder_.read("was/sfx.tvb"));
}

TEST_F(ExtractScriptTest, WritesNothingIfNoScriptCouldPackTheFiles) {
  pack({{userAsset, "x"}}, {"A_DAT"});
  write("out/old.txt", "old");
  expectAnswers({"extract", "was/sfx.tvb"},
                {
                    {{"--raw", "--script", "out/s.txt"}, "--script doesn't go with --raw"},
                    {{"-o", "a b", "--script", "out/s.txt"}, "can't name files in"},
                    {{"-o", "a;b", "--script", "out/s.txt"}, "can't name files in"},
                    {{"-o", "files", "--script", "was/s.txt"}, "would replace was/sfx.tvb"},
                    {{"-o", "files", "--script", "SFX.h"}, "packing would replace SFX.h by sfx.h"},
                    {{"-o", "files", "--script", "sfx.TVB"}, "packing would replace sfx.TVB by"},
                    {{"-o", "files", "--script", "gone/s.txt"}, "no such folder"},
                    {{"-o", "files", "--script", "files"}, "it is the folder of the files"},
                    {{"-o", "files", "--script", "out/old.txt"},
                     "out/old.txt exists already; --force replaces"},
                });
  fs::rename("was/sfx.tvb", "was/s fx.tvb");
  expectAnswers({"extract", "was/s fx.tvb", "--script", "out/s.txt"},
                {{{}, "no script can name a bank s fx.tvb"}});
}

TEST_F(ExtractScriptTest, RandomBanksComeOutTheSame) {
  const test::SoundFiles files = test::soundFiles();
  for (const auto& [name, file] : files) {
    write(name, file.bytes);
  }
  const char* number = std::getenv("TAVREL_PROMISE_PROJECTS");
  const int count = number != nullptr ? std::atoi(number) : 100;
  test::ScriptGenerator generator(11, files);
  for (int i = 0; i < count && !HasFailure(); ++i) {
    for (const auto& [name, statement] : test::kDamagedFiles) {
      folder_.write(name, generator.damaged(name));
    }
    const std::string script = generator.script();
    const std::string prefix = generator.prefix();
    SCOPED_TRACE(testing::PrintToString(script) + " under the prefix " + prefix);
    for (const char* folder : {"was", "out"}) {
      fs::remove_all(folder);
      fs::create_directory(folder);
    }
    folder_.write("s.txt", script);
    const test::Wanted wanted = test::wantedBy(script);
    const bool isOdd = wanted.bank == wanted.header() || wanted.bank.find('/') != std::string::npos;
    if (runTool(
            {"s.txt", "HeaderPrefix", prefix.c_str(), "bankPath", "was/", "headerPath", "was/"}) &&
        !isOdd) {
      judge(wanted.bank, wanted.header());
    }
  }
  EXPECT_GT(same_, count / 5);
}

}  // namespace
}  // namespace tavrel::kit
