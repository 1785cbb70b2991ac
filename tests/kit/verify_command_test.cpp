// tavkit verify: what damage each check finds. Banks of the tool are verified with the
// promise of check.
#include <array>
#include <functional>
#include <regex>

#include "tests/kit/command_test.h"
#include "tests/support/bank_builder.h"
#include "tests/support/midi_builder.h"

namespace tavrel::kit {
namespace {

using namespace tavrel::test;
using testing::HasSubstr;

struct Asset {
  std::uint32_t type;
  std::string blob;
  std::array<std::uint32_t, 8> parameters{};
  std::string padding = std::string(-blob.size() % 4, '\0');
  std::string before = {};  ///< bytes that belong to nothing
};

bool isPadded(std::uint32_t type) { return type == 1 || type == 2 || type == 6; }

/// A small bank, to be damaged before it is built.
struct SmallBank {
  std::string name = "sfx";
  std::vector<Asset> assets{
      {1, "adpcm012", {22050, 0, 4}},
      {1, "loop01", {44100, 1, 8, 50, 1, 6}},
      {2, midi(96).track(events().tempo(0, 400000).endOfTrack()), {96, 127, 1, 0, 0, 400000}},
      {3, "tone", {1}},
      {6, "any", {1, 2, 3, 4, 5, 6, 7, 0x80000000}},
      {4, "fx"},
  };
  char lastByte = '\0';
  std::string end = "";  ///< what follows the padding of the bank
  std::string header = headerOf({"U", "V", "W", "X", "Y", "Z"}, 62, 290);

  [[nodiscard]] std::string bytes() const {
    Bytes table = Bytes().le32(assets.size());
    Bytes blobs;
    for (const Asset& asset : assets) {
      blobs.text(asset.before);
      table.le32(asset.type).le32(4 + 44 * assets.size() + blobs.size()).le32(asset.blob.size());
      for (const std::uint32_t parameter : asset.parameters) {
        table.le32(parameter);
      }
      blobs.text(asset.blob).text(isPadded(asset.type) ? asset.padding : "");
    }
    table.text(blobs).fill(-table.size() % 32);
    if (lastByte != '\0') {
      table.back() = lastByte;
    }
    return table.text(end);
  }
  void edit(const std::string& from, const std::string& to) {
    header = std::regex_replace(header, std::regex(from), to);
  }
};

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

  std::string write(const SmallBank& bank) const {
    folder_.write(bank.name + ".h", bank.header);
    return folder_.write(bank.name + ".tvb", bank.bytes());
  }

  struct Damage {
    const char* name;
    std::function<void(SmallBank&)> apply;
    std::string found;
  };

  void expectFound(const std::vector<Damage>& damages) {
    for (const Damage& damage : damages) {
      SCOPED_TRACE(damage.name);
      SmallBank bank;
      damage.apply(bank);
      EXPECT_EQ(verify({write(bank)}), damage.found);
    }
  }
};

/// Sets a parameter of an asset.
auto set(std::size_t id, std::size_t parameter, std::uint32_t value) {
  return [=](SmallBank& bank) { bank.assets[id].parameters[parameter] = value; };
}

/// Moves an asset to the front and sets some of its parameters to 1.
auto setFirst(std::size_t id, std::initializer_list<std::size_t> parameters) {
  return [id, list = std::vector(parameters)](SmallBank& bank) {
    std::swap(bank.assets[0], bank.assets[id]);
    for (const std::size_t parameter : list) {
      bank.assets[0].parameters[parameter] = 1;
    }
  };
}

/// Replaces the first asset by a wave of 6 bytes.
auto sixBytes(std::uint32_t bits) {
  return [=](SmallBank& bank) { bank.assets[0] = Asset{1, "6bytes", {22050, 0, bits}}; };
}

/// Replaces text in the header.
auto edit(const std::string& from, const std::string& to) {
  return [=](SmallBank& bank) { bank.edit(from, to); };
}

TEST_F(VerifyTest, FindsDamageOfTheLayout) {
  expectFound({
      {"none", [](SmallBank&) {}, ""},
      {"no multiple of 32 bytes", [](SmallBank& bank) { bank.end = "x"; }, "open"},
      {"between blobs", [](SmallBank& bank) { bank.assets[1].before = "gaps"; }, "gap1"},
      {"no padding", [](SmallBank& bank) { bank.assets[4].padding = ""; }, "gap5"},
      {"no room for the last padding",
       [](SmallBank& bank) {
         bank.assets[3].blob = "tone!";
         bank.assets[5] = {6, std::string(23, 'x'), {}, ""};
         bank.edit("62", "85");
         bank.edit("290", "267");
       },
       "gap5"},
      {"padding of a blob", [](SmallBank& bank) { bank.assets[1].padding[1] = 1; }, "padding1"},
      {"padding of the bank", [](SmallBank& bank) { bank.lastByte = '\1'; }, "padding"},
      {"a longer bank",
       [](SmallBank& bank) {
         bank.end = std::string(32, 'x');
         bank.edit("290", "322");
       },
       "length"},
      {"type 0", [](SmallBank& bank) { bank.assets[5].type = 0; }, "type5"},
      {"type 7", [](SmallBank& bank) { bank.assets[5].type = 7; }, "type5"},
  });
}

TEST_F(VerifyTest, FindsDamageOfRecordsAndBlobs) {
  expectFound({
      {"any rate", set(0, 0, 0xFFFFFFFF), ""},
      {"loop flag", set(1, 1, 2), "parameter1"},
      {"16 bits unsigned", set(0, 2, 65535), ""},
      {"more bits", set(0, 2, 65536), "parameter0"},
      {"bank type", set(3, 0, 2), "parameter3"},
      {"17 bits of division", set(2, 0, 0x8000), "parameter2 division2"},
      {"25 bits of tempo", set(2, 5, 0x1000000), "parameter2 tempo2"},
      {"loop start of no loop", set(0, 4, 1), "unused-parameter0"},
      {"loop end of no loop", set(0, 5, 1), "unused-parameter0"},
      {"a wave's sixth", set(1, 6, 1), "unused-parameter1"},
      {"a sequence's fourth", set(2, 4, 1), "unused-parameter2"},
      {"a tone bank's first", set(3, 1, 1), "unused-parameter3"},
      {"a DSP bank's own", set(5, 0, 1), "unused-parameter5"},
      {"6 bytes of ADPCM", sixBytes(4), "adpcm-length0"},
      {"6 bytes of PCM", sixBytes(16), ""},
      {"no end", [](SmallBank& bank) { bank.assets[2].blob[31] = 1; }, "sequence2"},
      {"division", set(2, 0, 97), "division2"},
      {"tempo", set(2, 5, 400001), "tempo2"},
      {"no tempo", [](SmallBank& bank) { bank.assets[2].blob[24] = 1; }, "tempo2"},
      {"a first sequence", setFirst(2, {0, 5}), "division0 tempo0"},
      {"a first loop", setFirst(1, {5}), "loop0"},
      {"an empty loop", set(1, 4, 6), "loop1"},
      {"a loop beyond 6 bytes", set(1, 5, 7), "loop1"},
      {"a loop beyond 3 words", set(1, 2, 16), "loop1"},
      {"a loop of unknown samples", set(1, 2, 0), ""},
  });
}

TEST_F(VerifyTest, FindsDamageOfTheHeader) {
  expectFound({
      {"tested guard", edit("ifndef\t_SFX", "ifndef\t_SFY"), "guard"},
      {"defined guard", edit("define\t_SFX", "define\t_sfx"), "guard"},
      {"ended guard", edit("of _SFX_H", "of SFX_H"), "guard"},
      {"no end", edit("#endif", ""), "guard"},
      {"data size", edit("62", "63"), "sizes"},
      {"octal header size", edit("290", "0290"), "sizes"},
      {"no size", edit("#define\t\tSFX_BANK_DATA", "//"), "sizes"},
      {"file name", edit("\"sfx.tvb\"", "\"SFX.tvb\""), "file-name"},
      {"a digit first", edit("SFX_U", "1_U"), "define0"},
      {"a hyphen", edit("SFX_V", "SFX-V"), "define1"},
      {"the bank's prefix", edit("SFX_(FILE|BANK)", "S.X_$1"), "define define define"},
      {"a guard with a hyphen",
       [](SmallBank& bank) {
         bank.name = "s-x";
         bank.edit("_SFX_H", "_S-X_H");
         bank.edit("\"sfx", "\"s-x");
       },
       "define"},
      {"a name too long for a guard",
       [](SmallBank& bank) {
         bank.name = std::string(100, 'n');
         bank.edit("\"sfx", '"' + bank.name);
       },
       "guard"},
      {"no number", edit("5\n", "5u\n"), "define missing-define5"},
      {"octal", edit("5\n", "05\n"), "define missing-define5"},
      {"two of a name", edit("SFX_Z", "SFX_U"), "duplicate5"},
      {"a size's name", edit("SFX_Z", "SFX_BANK_DATA_SIZE"), "duplicate5"},
      {"the guard's name", edit("SFX_Z", "_SFX_H"), "duplicate5"},
      {"a size twice", edit("#endif", "#define SFX_BANK_DATA_SIZE 62\n#endif"), "duplicate"},
      {"none", edit("#define\t\tSFX_Z.*\n", ""), "missing-define5"},
      {"one more", edit("#endif", "#define SFX_G 0\n#endif"), "extra-define0"},
      {"an id beyond", edit("#endif", "#define SFX_G 6\n#endif"), "extra-define6"},
  });
}

TEST_F(VerifyTest, PrintsALineForEachCheckAndEachFinding) {
  SmallBank bank;
  bank.assets[1].parameters = {44100, 1, 8, 50, 0, 9, 5};
  bank.edit("SFX_V", "SFX\x1B_V");
  bank.assets[0].parameters[7] = 1;
  bank.edit("SFX_U", std::string(201, 'U'));
  const std::string path = write(bank);
  const auto count = [](const std::string& text, const char* pattern) {
    const std::regex regex(pattern);
    return std::distance(std::sregex_iterator(text.begin(), text.end(), regex), {});
  };
  run({"verify", path});
  const std::string text = output_.results;
  const std::string asset = ": asset 1 (SFX\uFFFD_V): ";
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
  const Lines inFolder{"sfx.tvb", "-C", folder_.path(), "--script", "sfx.txt", "--prefix"};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    script(row.files, row.lastOption);
    folder_.write("a.dat", row.contentOfA);
    for (const char* header : {"--header-dir=include", "--no-header"}) {
      Lines arguments = inFolder;
      arguments.insert(arguments.end(), {row.prefix, header});
      EXPECT_EQ(verify(arguments), header[2] == 'n' ? row.foundWithoutHeader : row.found);
    }
  }
  script("x");
  expectAnswers({"verify", "sfx.tvb"},
                {{{"--script", "sfx.txt"}, ""}, {{"--prefix", "p"}, "--prefix needs --script"}});
}

TEST_F(VerifyTest, FailsOnlyIfThereIsNoAnswer) {
  const std::string bank = write(SmallBank());
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
