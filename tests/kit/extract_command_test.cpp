// Extracted files byte for byte, and what stops an extraction.
#include <array>
#include <regex>

#include "tests/kit/command_test.h"
#include "tests/support/bank_builder.h"
#include "tests/support/sound_builder.h"

extern "C" void decodeAdpcm(const std::uint8_t* stream, std::size_t size, std::int16_t* samples);

namespace tavrel::kit {
namespace {

using test::Bytes;
using testing::ElementsAre;

constexpr std::uint32_t wave = 1;
constexpr std::uint32_t sequence = 2;
constexpr std::uint32_t userAsset = 6;

/// The loop chunk of a WAV file at 11025 Hz.
std::string sampler(std::uint32_t first, std::uint32_t last) {
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

class ExtractTest : public CommandTest {
 protected:
  /// Writes a bank, and a header unless there are no names.
  void pack(const std::vector<test::BankAsset>& assets, const Lines& names = {}) const {
    write("sfx.tvb", test::bankOf(assets));
    if (!names.empty()) {
      write("sfx.h", test::headerOf(names));
    }
  }

  /// Extracts to a folder that is removed before.
  int extract(const Lines& arguments) {
    fs::remove_all("out");
    return run({"extract", "sfx.tvb", "-o", "out"}, arguments);
  }
};

TEST_F(ExtractTest, WritesWavesAsWavFiles) {
  std::string codes;
  for (std::uint32_t i = 0, state = 1; i < 200'000; ++i) {
    state = state * 1664525 + 1013904223;
    codes.push_back(static_cast<char>(state >> 24U));
  }
  const std::string words = Bytes().le16(0x8000).le16(0xFFFF).le16(1).le16(0x7FFF);
  const auto wav = [](std::uint32_t bits, std::uint32_t rate, std::uint32_t channels = test::mono) {
    return test::wav().fmt(channels, bits, rate);
  };
  const std::string outside = " isn't inside the sound and is left out\n";
  const struct {
    std::array<std::int32_t, 8> parameters;
    std::string blob, file;
    std::string note = "", channels = "1";
  } rows[] = {
      {{11025, 0, 8}, {"\x80\xFF\x00\x7F", 4}, wav(8, 11025).data({"\x00\x7F\x80\xFF", 4})},
      {{44100, 0, 16, 7}, words, wav(16, 44100).data(words)},
      {{22050, 0, 4}, codes, wav(16, 22050).data(printedDecoder(codes))},
      {{8000, 0, 24}, "abcdef", wav(24, 8000).data("abcdef")},
      {{8000, 0, 32}, "abcdefgh", wav(32, 8000).data("abcdefgh")},
      {{8000, 0, 16}, "odd", wav(16, 8000).data("od")},
      {{0, 0, 16}, "", wav(16, 22050).data(""), "a sample rate of 0 becomes 22050 Hz\n"},
      {{-1, 0, 16}, "", wav(16, 22050).data(""), "a sample rate of -1 becomes 22050 Hz\n"},
      {{11025, 1, 8, 0, 1, 3},
       "aaa",
       wav(8, 11025).data("\xE1\xE1\xE1").chunk("smpl", sampler(1, 2))},
      {{8000, 1, 8, 0, 0, 2}, "a", wav(8, 8000).data("\xE1"), "the loop from 0 to 2" + outside},
      {{8000, 1, 8, 0, 1, 1}, "a", wav(8, 8000).data("\xE1"), "the loop from 1 to 1" + outside},
      {{11025, 1, 16, 0, 2, 4},
       words,
       wav(16, 11025, 2).data(words).chunk("smpl", sampler(1, 1)),
       "",
       "2"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.parameters));
    pack({{wave, row.blob, row.parameters}});
    EXPECT_EQ(extract({"--channels", row.channels}), 0);
    EXPECT_EQ(output_.messages, row.note.empty() ? "" : "tavkit: 0000.wav: " + row.note);
    EXPECT_TRUE(folder_.read("out/0000.wav") == row.file);
  }
}

TEST_F(ExtractTest, WritesOtherAssetsAsTheyAre) {
  pack({{wave, "twelve", {8000, 0, 12}},
        {wave, "\x80", {0, 1, 8}},
        {sequence, "MThd"},
        {3, ""},
        {77, "x"}});
  EXPECT_EQ(extract({"0"}), 0);
  EXPECT_EQ(output_.messages,
            "tavkit: 0000.raw: no WAV file holds samples of 12 bits; written as it is\n");
  EXPECT_EQ(extract({"--raw", "--force"}), 0);
  EXPECT_EQ(output_.messages + output_.results, "");
  EXPECT_THAT(filesIn("out"),
              ElementsAre("0000.raw", "0001.raw", "0002.mid", "0003.bin", "0004.bin"));
  EXPECT_EQ(folder_.read("out/0000.raw"), "twelve");
  EXPECT_EQ(folder_.read("out/0001.raw"), "\x80");
  EXPECT_EQ(folder_.read("out/0002.mid"), "MThd");
}

TEST_F(ExtractTest, WritesOnlyTheAssetsThatAreNamed) {
  pack({{userAsset, "1"}, {userAsset, "2"}, {sequence, "3"}, {userAsset, "4"}},
       {"A_DAT", "A_DAT", "THEME_MID", "SFX_THEME_DAT"});
  const struct {
    Lines words;
    std::set<std::string> files;
  } rows[] = {
      {{}, {"a_0.dat", "a_1.dat", "theme.mid", "sfx_theme.dat"}},
      {{"0"}, {"a_0.dat"}},
      {{"0002", "2"}, {"theme.mid"}},
      {{"a_dat"}, {"a_0.dat", "a_1.dat"}},
      {{"sfx_Theme_mid"}, {"theme.mid"}},
      // The define itself comes first, then what it is without a prefix.
      {{"SFX_THEME_DAT"}, {"sfx_theme.dat"}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(extract(row.words), 0) << output_.messages;
    EXPECT_EQ(filesIn("out"), row.files);
  }
  write("sfx.h", std::regex_replace(test::headerOf({"A_DAT"}), std::regex("SFX_"), "_"));
  EXPECT_EQ(extract({"a_dat"}), 0) << "the header of a bank without a name";
  EXPECT_THAT(filesIn("out"), ElementsAre("a.dat"));
}

TEST_F(ExtractTest, WritesNothingIfAnythingIsInTheWay) {
  pack({{userAsset, "1"}, {userAsset, "2"}}, {"A_DAT", "B_DAT"});
  write("old/b.dat", "old");
  fs::create_directories("folder/b.dat");
  expectAnswers({"extract", "sfx.tvb"},
                {{{"0", "2"}, "has no asset 2"},
                 {{"a_dat", "b_dax"}, "no asset b_dax; did you mean B_DAT?"},
                 {{"--channels", "0"}, "from 1 to 1024, not 0"},
                 {{"--channels", "1025"}, "from 1 to 1024, not 1025"},
                 {{"--channels", "2x"}, "from 1 to 1024, not 2x"},
                 {{"-o", "no/out"}, "can't make the folder"},
                 {{"-o", "sfx.h"}, "can't make the folder"},
                 {{"-o", "old"}, "b.dat exists already; --force replaces it"},
                 {{"-o", "folder", "--force"}, "isn't a file"}});
  EXPECT_EQ(folder_.read("old/b.dat"), "old");
  EXPECT_EQ(run({"extract", "sfx.tvb", "-o", "old", "--force"}), 0);
  EXPECT_EQ(folder_.read("old/a.dat") + folder_.read("old/b.dat"), "12");
  for (const char* name : {"SFX_TVB", "SFX_H"}) {
    pack({{userAsset, "first"}, {userAsset, "bad"}}, {"A_DAT", name});
    expectAnswers({"extract", "sfx.tvb", "--force"}, {{{}, "it is the bank or its header"}});
  }
}

#ifndef _WIN32
TEST_F(ExtractTest, ReplacesLinksThemselves) {
  pack({{userAsset, "new"}}, {"A_DAT"});
  for (const char* target : {"target", "missing"}) {
    write("target", "old");
    fs::remove("a.dat");
    fs::create_symlink(target, "a.dat");
    EXPECT_EQ(run({"extract", "sfx.tvb"}), 2);
    EXPECT_TRUE(fs::is_symlink("a.dat"));
    EXPECT_EQ(run({"extract", "sfx.tvb", "--force"}), 0);
    EXPECT_FALSE(fs::is_symlink("a.dat"));
    EXPECT_EQ(folder_.read("a.dat"), "new");
    EXPECT_EQ(folder_.read("target"), "old");
  }
}
#endif

}  // namespace
}  // namespace tavrel::kit
