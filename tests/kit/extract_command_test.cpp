// Extracted files byte for byte, what stops an extraction, and hostile defines.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <regex>
#include <set>

#include "kit/frame/command_line.h"
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

TEST_F(ExtractTest, WritesWavesAsWavFiles) {
  std::string codes;
  for (std::uint32_t i = 0, state = 1; i < 200'000; ++i) {
    state = state * 1664525 + 1013904223;
    codes.push_back(static_cast<char>(state >> 24U));
  }
  const std::string words = Bytes().le16(0x8000).le16(0xFFFF).le16(1).le16(0x7FFF);
  const auto wav = [](std::uint32_t bits, std::uint32_t rate, std::uint32_t channels = mono) {
    return test::wav().fmt(channels, bits, rate);
  };
  struct Row {
    std::array<std::int32_t, 8> parameters;
    std::string blob, file;
    const char* note = "";
    const char* channels = "1";
  };
  const std::vector<Row> rows = {
      {{11025, 0, 8}, {"\x80\xFF\x00\x7F", 4}, wav(8, 11025).data({"\x00\x7F\x80\xFF", 4})},
      {{44100, 0, 16, 7}, words, wav(16, 44100).data(words)},
      {{22050, 0, 4}, codes, wav(16, 22050).data(printedDecoder(codes))},
      {{8000, 0, 24}, "abcdef", wav(24, 8000).data("abcdef")},
      {{8000, 0, 32}, "abcdefgh", wav(32, 8000).data("abcdefgh")},
      {{8000, 0, 16}, "half", wav(16, 8000).data("half")},
      {{8000, 0, 16}, "odd", wav(16, 8000).data("od")},
      {{8000, 0, 16}, "", wav(16, 8000).data("")},
      {{0, 0, 16}, "", wav(16, 22050).data(""), "a sample rate of 0 becomes 22050 Hz"},
      {{-1, 0, 16}, "", wav(16, 22050).data(""), "a sample rate of -1 becomes 22050 Hz"},
      {{11025, 1, 8, 0, 1, 3},
       "aaa",
       wav(8, 11025).data("\xE1\xE1\xE1").chunk("smpl", sampler(1, 2))},
      {{8000, 1, 8, 0, 0, 2},
       "a",
       wav(8, 8000).data("\xE1"),
       "the loop from 0 to 2 isn't inside the sound and is left out"},
      {{8000, 1, 8, 0, 1, 1},
       "a",
       wav(8, 8000).data("\xE1"),
       "the loop from 1 to 1 isn't inside the sound and is left out"},
      {{11025, 1, 16, 0, 2, 4},
       words,
       wav(16, 11025, 2).data(words).chunk("smpl", sampler(1, 1)),
       "",
       "2"},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(testing::PrintToString(row.parameters));
    fs::remove_all(folder_.path("out"));
    pack({{wave, row.blob, row.parameters}});
    EXPECT_EQ(extract({"--channels", row.channels}), 0);
    EXPECT_THAT(output_.messages, HasSubstr(row.note));
    EXPECT_EQ(output_.messages.empty(), std::string_view(row.note).empty());
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

TEST_F(ExtractTest, LeavesOutThePrefixOfABankWithoutAName) {
  pack({{userAsset, "1"}});
  folder_.write("sfx.h", std::regex_replace(test::headerOf({"A_DAT"}), std::regex("SFX_"), "_"));
  EXPECT_EQ(extract({"a_dat"}), 0) << output_.messages;
  EXPECT_THAT(filesIn("out"), ElementsAre("a.dat"));
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
      "../../x_DAT", "/tmp/x_DAT",   "\\\\host\\x_DAT",
      "C:x_DAT",     "CON_DAT",      "x\x07_DAT",
      "x._DAT",      "\xC3\x28_DAT", std::string(300, 'A') + "_DAT",
      "A_../../x",   ".._",          "..",
      "_",           "%s%n_DAT"};
  pack(std::vector<BankAsset>(names.size(), {userAsset, "x"}), names);
  EXPECT_EQ(extract({}), 0);
  EXPECT_THAT(filesIn("."), ElementsAre("out", "sfx.h", "sfx.tvb"));
  EXPECT_THAT(filesIn("out"),
              ElementsAre("%s%n.dat", "0000.dat", "0001.dat", "0002.dat", "0003.dat", "0004.dat",
                          "0005.dat", "0006.dat", "0007.dat", "0008.dat", "0009.bin", "0010.bin",
                          "0011.bin", "0012.bin"));
}

}  // namespace
}  // namespace tavrel::kit
