// Extracted files byte for byte, what stops an extraction, and hostile banks and headers.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "kit/command_line.h"
#include "tests/support/bank_builder.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

extern "C" void decodeAdpcm(const std::uint8_t* stream, std::size_t size, std::int16_t* samples);

namespace tavrel::kit {
namespace {

namespace fs = std::filesystem;
using test::BankAsset;
using test::Bytes;
using test::mono;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr std::uint32_t wave = 1;
constexpr std::uint32_t sequence = 2;
constexpr std::uint32_t userAsset = 6;

/// The loop chunk of a WAV file at 11025 Hz.
std::string samplerChunk(std::uint32_t first, std::uint32_t last) {
  Bytes content = Bytes().fill(8).le32(90702).le32(60).fill(12).le32(1).fill(4);
  return content.fill(8).le32(first).le32(last).fill(8);
}

std::string printedDecoder(std::string_view codes) {
  std::vector<std::int16_t> samples(2 * codes.size());
  decodeAdpcm(reinterpret_cast<const std::uint8_t*>(codes.data()), codes.size(), samples.data());
  Bytes bytes;
  for (const std::int16_t sample : samples) {
    bytes.le16(static_cast<std::uint16_t>(sample));
  }
  return bytes;
}

/// A folder with a bank, perhaps its header, and an output folder that isn't there yet.
class ExtractTest : public testing::Test {
 protected:
  /// Writes a bank, and a header unless there are no names.
  void pack(const std::vector<BankAsset>& assets, const std::vector<std::string>& names = {}) {
    folder_.write("sfx.tvb", test::bankOf(assets));
    if (!names.empty()) {
      folder_.write("sfx.h", test::headerOf(names));
    }
  }

  int extract(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), {"extract", folder_.path("sfx.tvb")});
    arguments.insert(arguments.end(), {"-o", folder_.path("out")});
    output_ = {};
    return runCommandLine(arguments, output_);
  }

  /// Returns the names in a folder of the test.
  [[nodiscard]] std::set<std::string> filesIn(const char* folder) const {
    std::set<std::string> names;
    if (fs::exists(folder_.path(folder))) {
      for (const auto& entry : fs::directory_iterator(folder_.path(folder))) {
        names.insert(entry.path().filename().string());
      }
    }
    return names;
  }

  test::TemporaryDirectory folder_;
  Output output_;
};

TEST_F(ExtractTest, WritesWavesSequencesAndOpaqueAssets) {
  std::string codes;
  for (std::uint32_t i = 0, state = 1; i < 200'000; ++i) {
    state = state * 1664525 + 1013904223;
    codes.push_back(static_cast<char>(state >> 24U));
  }
  const std::string words = Bytes().le16(0x8000).le16(0xFFFF).le16(1).le16(0x7FFF);
  struct Row {
    const char *name, *file;
    std::vector<std::string> arguments;
    BankAsset asset;
    std::string content;
    const char* note = "";
  };
  const auto wav = [](std::uint32_t channels, std::uint32_t bits, std::uint32_t rate) {
    return test::wav().fmt(channels, bits, rate);
  };
  const std::vector<Row> rows = {
      {"8 bits",
       "0000.wav",
       {},
       {wave, {"\x80\xFF\x00\x7F\x01", 5}, {11025, 0, 8}},
       wav(mono, 8, 11025).data({"\x00\x7F\x80\xFF\x81", 5})},
      {"8 bits that loop",
       "0000.wav",
       {},
       {wave, "abcd", {11025, 1, 8, 0, 1, 4}},
       wav(mono, 8, 11025).data("\xE1\xE2\xE3\xE4").chunk("smpl", samplerChunk(1, 3))},
      {"16 bits",
       "0000.wav",
       {},
       {wave, words, {44100, 0, 16, 7}},
       wav(mono, 16, 44100).data(words)},
      {"frames of two channels",
       "0000.wav",
       {"--channels", "2"},
       {wave, words, {11025, 1, 16, 0, 2, 4}},
       wav(2, 16, 11025).data(words).chunk("smpl", samplerChunk(1, 1))},
      {"ADPCM",
       "0000.wav",
       {},
       {wave, codes, {22050, 0, 4}},
       wav(mono, 16, 22050).data(printedDecoder(codes))},
      {"24 bits",
       "0000.wav",
       {},
       {wave, "abcdef", {8000, 0, 24}},
       wav(mono, 24, 8000).data("abcdef")},
      {"32 bits",
       "0000.wav",
       {},
       {wave, "abcdefgh", {8000, 0, 32}},
       wav(mono, 32, 8000).data("abcdefgh")},
      {"half a sample",
       "0000.wav",
       {},
       {wave, "abc", {8000, 0, 16}},
       wav(mono, 16, 8000).data("ab")},
      {"no samples", "0000.wav", {}, {wave, "", {8000, 0, 16}}, wav(mono, 16, 8000).data("")},
      {"12 bits",
       "0000.raw",
       {},
       {wave, "abc", {8000, 0, 12}},
       "abc",
       "tavkit: 0000.raw: no WAV file holds samples of 12 bits; written as it is\n"},
      {"rate 0",
       "0000.wav",
       {},
       {wave, "ab", {0, 0, 16}},
       wav(mono, 16, 22050).data("ab"),
       "tavkit: 0000.wav: a sample rate of 0 becomes 22050 Hz\n"},
      {"negative rate",
       "0000.wav",
       {},
       {wave, "ab", {-1, 0, 16}},
       wav(mono, 16, 22050).data("ab"),
       "tavkit: 0000.wav: a sample rate of -1 becomes 22050 Hz\n"},
      {"loop beyond the end",
       "0000.wav",
       {},
       {wave, "ab", {8000, 1, 8, 0, 0, 3}},
       wav(mono, 8, 8000).data("\xE1\xE2"),
       "tavkit: 0000.wav: the loop from 0 to 3 isn't inside the sound and is left out\n"},
      {"empty loop",
       "0000.wav",
       {},
       {wave, "ab", {8000, 1, 8, 0, 1, 1}},
       wav(mono, 8, 8000).data("\xE1\xE2"),
       "tavkit: 0000.wav: the loop from 1 to 1 isn't inside the sound and is left out\n"},
      {"raw", "0000.raw", {"--raw"}, {wave, "\x80zzz", {0, 1, 8}}, "\x80zzz"},
      {"sequence", "0000.mid", {"--raw"}, {sequence, "MThd", {}}, "MThd"},
      {"tone bank", "0000.bin", {}, {3, "tones", {}}, "tones"},
      {"unknown type", "0000.bin", {}, {77, "what", {}}, "what"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.name);
    fs::remove_all(folder_.path("out"));
    pack({row.asset});
    EXPECT_EQ(extract(row.arguments), 0);
    EXPECT_EQ(output_.messages, row.note);
    EXPECT_EQ(output_.results, "");
    EXPECT_THAT(filesIn("out"), ElementsAre(row.file));
    EXPECT_TRUE(folder_.read(std::string("out/") + row.file) == row.content);
  }
}

TEST_F(ExtractTest, WritesOnlyTheAssetsThatAreNamed) {
  struct Row {
    std::vector<std::string> words;
    std::set<std::string> files;
  };
  const std::set<std::string> all{"a_0.dat", "a_1.dat", "theme.mid", "sfx_theme.dat"};
  for (const Row& row :
       {Row{{}, all}, Row{{"0"}, {"a_0.dat"}}, Row{{"0002", "2"}, {"theme.mid"}},
        Row{{"a_dat"}, {"a_0.dat", "a_1.dat"}}, Row{{"sfx_Theme_mid"}, {"theme.mid"}},
        // The define itself comes first, then what it is without a prefix.
        Row{{"SFX_THEME_DAT"}, {"sfx_theme.dat"}}}) {
    fs::remove_all(folder_.path("out"));
    pack({{userAsset, "1"}, {userAsset, "2"}, {sequence, "3"}, {userAsset, "4"}},
         {"A_DAT", "A_DAT", "THEME_MID", "SFX_THEME_DAT"});
    EXPECT_EQ(extract(row.words), 0) << output_.messages;
    EXPECT_EQ(filesIn("out"), row.files);
  }
}

TEST_F(ExtractTest, WritesNothingIfAnythingIsInTheWay) {
  struct Row {
    const char* name;
    std::vector<std::string> arguments;
    const char* message;
  };
  pack({{userAsset, "1"}, {userAsset, "2"}}, {"A_DAT", "B_DAT"});
  for (const Row& row : {Row{"an id", {"0", "2"}, "has no asset 2"},
                         Row{"a define", {"a_dat", "b_dax"}, "no asset b_dax; did you mean B_DAT?"},
                         Row{"no channels", {"--channels", "0"}, "from 1 to 1024, not 0"},
                         Row{"too many", {"--channels", "1025"}, "from 1 to 1024, not 1025"},
                         Row{"no number", {"--channels", "2x"}, "from 1 to 1024, not 2x"},
                         Row{"no parent", {"-o", folder_.path("no/out")}, "can't make the folder"},
                         Row{"a file", {"-o", folder_.path("sfx.h")}, "can't make the folder"}}) {
    SCOPED_TRACE(row.name);
    std::vector<std::string> arguments = row.arguments;
    arguments.insert(arguments.begin(), {"extract", folder_.path("sfx.tvb")});
    if (arguments[2] != "-o") {
      arguments.insert(arguments.end(), {"-o", folder_.path("out")});
    }
    Output output;
    EXPECT_EQ(runCommandLine(arguments, output), 2);
    EXPECT_THAT(output.messages, HasSubstr(row.message));
    EXPECT_EQ(output.results, "");
    EXPECT_THAT(filesIn("."), ElementsAre("sfx.h", "sfx.tvb"));
  }
}

TEST_F(ExtractTest, ReplacesExistingFilesOnlyWhenForced) {
  pack({{userAsset, "new a"}, {userAsset, "new b"}}, {"A_DAT", "B_DAT"});
  fs::create_directory(folder_.path("out"));
  folder_.write("out/b.dat", "old b");
  EXPECT_EQ(extract({}), 2);
  EXPECT_THAT(output_.messages, HasSubstr("b.dat exists already; --force replaces it"));
  EXPECT_THAT(filesIn("out"), ElementsAre("b.dat"));
  EXPECT_EQ(folder_.read("out/b.dat"), "old b");
  EXPECT_EQ(extract({"--force"}), 0);
  EXPECT_EQ(folder_.read("out/a.dat"), "new a");
  EXPECT_EQ(folder_.read("out/b.dat"), "new b");
  fs::remove(folder_.path("out/b.dat"));
  fs::create_directory(folder_.path("out/b.dat"));
  EXPECT_EQ(extract({"--force"}), 2);
  EXPECT_THAT(output_.messages, HasSubstr("isn't a file"));
}

TEST_F(ExtractTest, NeverReplacesTheBankOrItsHeader) {
  for (const char* name : {"SFX_TVB", "SFX_H"}) {
    pack({{userAsset, "first"}, {userAsset, "bad"}}, {"A_DAT", name});
    Output output;
    EXPECT_EQ(runCommandLine({"extract", folder_.path("sfx.tvb"), "--force", "-o", folder_.path()},
                             output),
              2);
    EXPECT_THAT(output.messages, HasSubstr("it is the bank or its header"));
    EXPECT_THAT(filesIn("."), ElementsAre("sfx.h", "sfx.tvb"));
  }
}

#ifndef _WIN32
TEST_F(ExtractTest, ReplacesLinksThemselves) {
  pack({{userAsset, "new"}}, {"A_DAT"});
  fs::create_directory(folder_.path("out"));
  for (const char* target : {"target", "missing"}) {
    folder_.write("target", "old");
    fs::remove(folder_.path("out/a.dat"));
    fs::create_symlink(folder_.path(target), folder_.path("out/a.dat"));
    EXPECT_EQ(extract({}), 2);
    EXPECT_TRUE(fs::is_symlink(folder_.path("out/a.dat")));
    EXPECT_EQ(extract({"--force"}), 0);
    EXPECT_FALSE(fs::is_symlink(folder_.path("out/a.dat")));
    EXPECT_EQ(folder_.read("out/a.dat"), "new");
    EXPECT_EQ(folder_.read("target"), "old");
  }
}
#endif

TEST_F(ExtractTest, HostileDefinesStayInTheFolder) {
  const std::vector<std::string> names = {
      "../../x", "../../X_DAT", "CON",    "con_dat",         "/tmp/x_DAT",   "\\\\host\\x_DAT",
      "C:x_DAT", "x\x07_DAT",   "..",     "X_../../x",       ".._",          "A_DAT/../../../x",
      "_",       "lpt1.x_DAT",  "x._DAT", ".tavrel-1.tmp_X", "\xC3\x28_DAT", "%s%n_DAT"};
  std::vector<std::string> all = names;
  all.push_back(std::string(300, 'A') + "_DAT");
  pack(std::vector<BankAsset>(all.size(), {userAsset, "x"}), all);
  EXPECT_EQ(extract({}), 0);
  EXPECT_THAT(filesIn("."), ElementsAre("out", "sfx.h", "sfx.tvb"));
  std::set<std::string> expected{"0000.bin", "0002.bin", "0008.bin", "0009.bin", "0010.bin",
                                 "0011.bin", "0012.bin", "0015.x",   "%s%n.dat"};
  for (const char* id : {"01", "03", "04", "05", "06", "07", "13", "14", "16", "18"}) {
    expected.insert(std::string("00") + id + ".dat");
  }
  EXPECT_EQ(filesIn("out"), expected);
}

TEST_F(ExtractTest, DamagedBanksAndHeadersStayInTheFolder) {
  const std::vector<BankAsset> assets = {
      {wave, "abcd", {8000, 1, 8, 0, 1, 3}}, {wave, "abcd", {8000, 0, 4}}, {userAsset, "xyz"}};
  const std::string bank = test::bankOf(assets);
  const std::string header = test::headerOf({"A_WAV", "B_WAV", "C_DAT"});
  const auto run = [this](std::string_view damagedBank, std::string_view damagedHeader) {
    folder_.write("sfx.tvb", damagedBank);
    folder_.write("sfx.h", damagedHeader);
    const int code = extract({"--force"});
    EXPECT_EQ(code == 0, output_.messages.find("can't") == std::string::npos &&
                             output_.messages.find("not a bank") == std::string::npos);
    EXPECT_THAT(filesIn("."), testing::IsSubsetOf({"out", "sfx.h", "sfx.tvb"}));
    fs::remove_all(folder_.path("out"));
  };
  for (std::size_t i = 0; i < bank.size(); ++i) {
    run(std::string_view(bank).substr(0, i), header);
    std::string damaged = bank;
    damaged[i] = static_cast<char>(~damaged[i]);
    run(damaged, header);
  }
  for (std::size_t i = 0; i < header.size(); ++i) {
    run(bank, std::string_view(header).substr(0, i));
    for (const char replacement : {'/', '.', '\xFF'}) {
      std::string damaged = header;
      damaged[i] = replacement;
      run(bank, damaged);
    }
  }
}

}  // namespace
}  // namespace tavrel::kit
