// tavkit verify: what damage each check finds. Banks of the tool are verified with the
// promise of check.
#include <regex>

#include "tests/kit/command_test.h"
#include "tests/support/bank_builder.h"
#include "tests/support/midi_builder.h"

namespace tavrel::kit {
namespace {

using namespace tavrel::test;
using testing::HasSubstr;

/// The sequence, the ADPCM and the loop have the ids 0, 1 and 2. The table ends at 268, the first
/// blob at 301, the fifth one at 327, the last one at 330, and the bank at 352.
const std::string kBank = bankOf({
    {2, midi(96).track(events().tempo(0, 400000).endOfTrack()), {96, 127, 1, 0, 0, 400000}},
    {1, "adpcm012", {22050, 0, 4}},
    {1, "loop01", {44100, 1, 8, 50, 1, 6}},
    {3, "tone", {1}},
    {6, "any", {1, 2, 3, 4, 5, 6, 7, -2147483647 - 1}},
    {4, "fx"},
});
const std::string kHeader = headerOf({"U", "V", "W", "X", "Y", "Z"}, 62, 290);

struct Edit {
  std::size_t position;
  std::string bytes;
};

enum Word : std::uint8_t { type, offset, size, firstParameter };

/// Replaces a word of an asset's record.
Edit word(std::size_t id, std::size_t index, std::uint32_t value) {
  return {4 + 44 * id + 4 * index, Bytes().le32(value)};
}

Edit parameter(std::size_t id, std::size_t index, std::uint32_t value) {
  return word(id, firstParameter + index, value);
}

std::string replaced(const std::string& text, const std::string& from, const std::string& to) {
  return std::regex_replace(text, std::regex(from), to);
}

class VerifyTest : public CommandTest {
 protected:
  /// Returns the code of each finding, followed by the id of its asset if there is one.
  std::string verify(const Lines& arguments) {
    const int code = run({"verify", "--json"}, arguments);
    const Json document = Json::parse(output_.results);
    EXPECT_EQ(document["format"], 1);
    EXPECT_EQ(document["ok"], document["findings"].empty());
    EXPECT_EQ(code, document["ok"] ? 0 : 1);
    std::string found;
    for (const Json& finding : document["findings"]) {
      EXPECT_NE(finding["message"], "");
      found += (found.empty() ? "" : " ") + finding["code"].get<std::string>() +
               (finding["id"].is_null() ? "" : finding["id"].dump());
    }
    return found;
  }

  /// Writes the bank, damaged by edits, and a header. Returns the path of the bank.
  std::string write(const std::vector<Edit>& edits, const std::string& header = kHeader,
                    const std::string& name = "sfx") const {
    std::string bank = kBank;
    for (const Edit& edit : edits) {
      bank.replace(edit.position, edit.bytes.size(), edit.bytes);
    }
    folder_.write(name + ".h", header);
    return folder_.write(name + ".tvb", bank);
  }
};

TEST_F(VerifyTest, FindsDamageOfTheBank) {
  const struct {
    const char* name;
    std::vector<Edit> edits;
    std::string found;
  } rows[] = {
      {"none", {}, ""},
      {"no multiple of 32 bytes", {{kBank.size(), "x"}}, "open"},
      {"between blobs", {word(5, offset, 332)}, "gap5"},
      {"no padding", {word(5, offset, 327), {327, {"fx\0", 3}}}, "gap5"},
      {"no room for the last padding",
       {word(5, type, 6), word(5, offset, 329), word(5, size, 352 - 329)},
       "gap5 gap5 sizes sizes"},
      {"padding of a blob", {{301, "\1"}}, "padding0"},
      {"padding of the bank", {{kBank.size() - 1, "\1"}}, "padding"},
      {"a longer bank", {{kBank.size(), std::string(32, 'x')}}, "length sizes"},
      {"type 0", {word(5, type, 0)}, "type5"},
      {"type 7", {word(5, type, 7)}, "type5"},

      {"any rate", {parameter(1, 0, 0xFFFFFFFF)}, ""},
      {"loop flag", {parameter(2, 1, 2)}, "parameter2"},
      {"16 bits unsigned", {parameter(1, 2, 65535)}, ""},
      {"more bits", {parameter(1, 2, 65536)}, "parameter1"},
      {"bank type", {parameter(3, 0, 2)}, "parameter3"},
      {"17 bits of division", {parameter(0, 0, 0x8000)}, "parameter0 division0"},
      {"25 bits of tempo", {parameter(0, 5, 0x1000000)}, "parameter0 tempo0"},
      {"loop start of no loop", {parameter(1, 4, 1)}, "unused-parameter1"},
      {"loop end of no loop", {parameter(1, 5, 1)}, "unused-parameter1"},
      {"a wave's sixth", {parameter(2, 6, 1)}, "unused-parameter2"},
      {"a sequence's fourth", {parameter(0, 4, 1)}, "unused-parameter0"},
      {"a tone bank's first", {parameter(3, 1, 1)}, "unused-parameter3"},
      {"a DSP bank's own", {parameter(5, 0, 1)}, "unused-parameter5"},

      {"33 bytes of ADPCM",
       {word(0, type, 1), parameter(0, 1, 0), parameter(0, 2, 4), parameter(0, 5, 0)},
       "adpcm-length0"},
      {"33 bytes of PCM",
       {word(0, type, 1), parameter(0, 1, 0), parameter(0, 2, 16), parameter(0, 5, 0)},
       ""},
      {"no end", {{268 + 31, "\1"}}, "sequence0"},
      {"division", {parameter(0, 0, 97)}, "division0"},
      {"tempo", {parameter(0, 5, 400001)}, "tempo0"},
      {"no tempo", {{268 + 24, "\1"}}, "tempo0"},
      {"a first loop", {word(0, type, 1), parameter(0, 1, 1), parameter(0, 2, 8)}, "loop0"},
      {"an empty loop", {parameter(2, 4, 6)}, "loop2"},
      {"a loop beyond 6 bytes", {parameter(2, 5, 7)}, "loop2"},
      {"a loop beyond 3 words", {parameter(2, 2, 16)}, "loop2"},
      {"a loop of unknown samples", {parameter(2, 2, 0)}, ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(verify({write(row.edits)}), row.found);
  }
}

TEST_F(VerifyTest, FindsDamageOfTheHeader) {
  const struct {
    const char *name, *from, *to, *found;
    std::string bank = "sfx";
  } rows[] = {
      {"tested guard", "ifndef\t_SFX", "ifndef\t_SFY", "guard"},
      {"defined guard", "define\t_SFX", "define\t_sfx", "guard"},
      {"ended guard", "of _SFX_H", "of SFX_H", "guard"},
      {"no end", "#endif", "", "guard"},
      {"data size", "62", "63", "sizes"},
      {"octal header size", "290", "0290", "sizes"},
      {"no size", "#define\t\tSFX_BANK_DATA", "//", "sizes"},
      {"file name", "\"sfx.tvb\"", "\"SFX.tvb\"", "file-name"},
      {"a digit first", "SFX_U", "1_U", "define0"},
      {"a hyphen", "SFX_V", "SFX-V", "define1"},
      {"the bank's prefix", "SFX_(FILE|BANK)", "S.X_$1", "define define define"},
      {"a guard with a hyphen", "_SFX_H", "_S-X_H", "define", "s-x"},
      {"a name too long for a guard", "#endif", "#endif", "guard", std::string(100, 'n')},
      {"no number", "5\n", "5u\n", "define missing-define5"},
      {"octal", "5\n", "05\n", "define missing-define5"},
      {"two of a name", "SFX_Z", "SFX_U", "duplicate5"},
      {"a size's name", "SFX_Z", "SFX_BANK_DATA_SIZE", "duplicate5"},
      {"the guard's name", "SFX_Z", "_SFX_H", "duplicate5"},
      {"a size twice", "#endif", "#define SFX_BANK_DATA_SIZE 62\n#endif", "duplicate"},
      {"none", "#define\t\tSFX_Z.*\n", "", "missing-define5"},
      {"one more", "#endif", "#define SFX_G 0\n#endif", "extra-define0"},
      {"an id beyond", "#endif", "#define SFX_G 6\n#endif", "extra-define6"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string header = replaced(kHeader, "\"sfx", '"' + row.bank);
    EXPECT_EQ(verify({write({}, replaced(header, row.from, row.to), row.bank)}), row.found);
  }
}

TEST_F(VerifyTest, PrintsALineForEachCheckAndEachFinding) {
  const std::string path =
      write({parameter(0, 7, 1), parameter(2, 5, 9), parameter(2, 6, 5)},
            replaced(replaced(kHeader, "SFX_W", "SFX\x1B_W"), "SFX_U", std::string(201, 'U')));
  const auto count = [](const std::string& text, const char* pattern) {
    const std::regex regex(pattern);
    return std::distance(std::sregex_iterator(text.begin(), text.end(), regex), {});
  };
  run({"verify", path});
  const std::string text = output_.results;
  const std::string asset = ": asset 2 (SFX\uFFFD_W): ";
  for (const std::string& line :
       {std::string("unused-parameter: asset 0: its parameter 7 "), "unused-parameter" + asset,
        "loop" + asset + "its loop ends at 9, ", "define" + asset}) {
    EXPECT_THAT(text, HasSubstr("\nFAIL  " + line));
  }
  EXPECT_EQ(std::regex_replace(text, std::regex("(ok|FAIL)  +([^:]+):[^\n]+\n"), "$2 "),
            "open gap padding length type parameter unused-parameter unused-parameter adpcm-length "
            "sequence division tempo loop guard sizes file-name define duplicate missing-define "
            "extra-define ");
  EXPECT_EQ(count(text, "ok    [^\n]+\n"), 19 - 3) << text;
  EXPECT_EQ(count(text, "\x1B"), 0) << text;
  run({"verify", path, "--no-header"});
  EXPECT_THAT(output_.results, HasSubstr("not checked: the header, which is missing"));
  EXPECT_EQ(count(output_.results, "ok    [^\n]+\n"), 12 - 2) << output_.results;
  Output output{.results = "", .messages = "", .isColoured = true};
  runCommandLine({"verify", path}, output);
  EXPECT_EQ(count(output.results, "\x1B\\[1;31mFAIL\x1B\\[0m  "), 4) << output.results;
}

TEST_F(VerifyTest, ComparesTheBankWithItsScript) {
  const auto script = [this](const std::string& files, const std::string& lastOption = "") {
    std::string text = "BankFileName sfx.tvb\n";
    for (const char file : files) {
      text += std::string("UserAsset ") + file + ".dat AssetEnd\n";
    }
    folder_.write("sfx.txt", text.insert(text.rfind("AssetEnd"), lastOption));
  };
  for (const char* file : {"a", "b", "c", "d", "e"}) {
    folder_.write(file + std::string(".dat"), std::string(5, *file));
  }
  fs::create_directory("include");
  script("abcd");
  ASSERT_TRUE(runTool({"sfx.txt", "headerPath", "include/"}));
  const struct {
    const char *name, *files, *lastOption, *found, *foundWithoutHeader;
    std::string prefix = "sfx", contentOfA = "aaaaa";
  } rows[] = {
      {"the same", "abcd", "", "", ""},
      {"first inserted", "eabcd", "", "missing", "stale0 stale1 stale2 stale3 missing"},
      {"first removed", "bcd", "", "extra0", "stale0 stale1 stale2 extra3"},
      {"exchanged, inserted", "acebd", "", "missing reordered1 reordered2",
       "stale1 stale2 stale3 missing"},
      {"a parameter", "abcd", "Parameter7 1 ", "stale3", "stale3"},
      {"a type", "abc", "AssetEnd MidiToneBank d.dat ", "stale3", "stale3"},
      {"other bytes", "abcd", "", "stale0", "stale0", "sfx", "aaaab"},
      {"a longer file", "abcd", "", "stale0", "stale0", "sfx", "aaaaaa"},
      {"another prefix", "a", "", "missing extra0 extra1 extra2 extra3", "extra1 extra2 extra3",
       "my"},
  };
  fs::current_path(folder_.path(".."));  // the first run enters the folder
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    script(row.files, row.lastOption);
    folder_.write("a.dat", row.contentOfA);
    for (const char* header : {"--header-dir=include", "--no-header"}) {
      EXPECT_EQ(verify({"sfx.tvb", "-C", folder_.path(), "--script", "sfx.txt", "--prefix",
                        row.prefix, header}),
                header[2] == 'n' ? row.foundWithoutHeader : row.found);
    }
  }
  script("x");
  expectAnswers({"verify", "sfx.tvb"},
                {{{"--script", "sfx.txt"}, ""}, {{"--prefix", "p"}, "--prefix needs --script"}});
}

TEST_F(VerifyTest, FailsOnlyIfThereIsNoAnswer) {
  const std::string bank = write({});
  EXPECT_EQ(run({"verify", bank}), 0);
  expectAnswers({"verify"}, {{{bank, "--header", "none.h"}, "can't read none.h"},
                             {{"none.tvb"}, "can't read none.tvb"},
                             {{"."}, "can't read ."}});
  fs::resize_file(bank, 1ULL << 32U);  // sparse
  EXPECT_EQ(run({"verify", bank}), 1);
  EXPECT_EQ(output_.results, "FAIL  open: the bank doesn't open: bad length\n");
}

}  // namespace
}  // namespace tavrel::kit
