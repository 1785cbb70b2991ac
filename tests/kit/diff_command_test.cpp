// tavkit diff: how assets are matched, what is said of them, and the two questions about headers.
#include <regex>
#include <sstream>

#include "tests/kit/command_test.h"
#include "tests/support/bank_builder.h"

namespace tavrel::kit {
namespace {

using test::BankAsset;

/// Assets and their defines, which aren't written to a header if there are none.
struct Version {
  Version(std::vector<BankAsset> all, Lines names)
      : assets(std::move(all)), defines(std::move(names)) {}

  /// User assets: "A=a =b/3" has the blob a under the define A, and b with 3 as first parameter.
  Version(const std::string& text) {
    std::istringstream words(text);
    for (std::string word; words >> word;) {
      const std::size_t equal = word.find('=');
      const std::size_t slash = std::min(word.find('/'), word.size());
      const int parameter = std::atoi(word.c_str() + std::min(slash + 1, word.size()));
      assets.push_back({6, word.substr(equal + 1, slash - equal - 1), {parameter}});
      if (equal > 0) {
        defines.push_back(word.substr(0, equal));
      }
    }
  }
  Version(const char* text) : Version(std::string(text)) {}

  std::vector<BankAsset> assets;
  Lines defines;
};

std::string header(const Version& version) {
  std::size_t data = 0;
  for (const BankAsset& asset : version.assets) {
    data += (asset.blob.size() + 3) / 4 * 4;
  }
  return test::headerOf(version.defines, data, test::bankOf(version.assets).size() - data);
}

class DiffTest : public CommandTest {
 protected:
  /// Writes a bank, and the header that the tool would write, in a folder of its own.
  std::string write(const std::string& folder, const Version& version) const {
    fs::remove_all(folder);
    CommandTest::write(folder + "/sfx.tvb", test::bankOf(version.assets));
    if (!version.defines.empty()) {
      CommandTest::write(folder + "/sfx.h", header(version));
    }
    return folder + "/sfx.tvb";
  }

  /// Returns what the document says of each asset: its changes, "old>new" define, "old>new" id, and
  /// the parameters that changed.
  [[nodiscard]] std::string assets() const {
    const auto text = [](const Json& value) {
      return value.is_null() ? "-" : value.is_string() ? value.get<std::string>() : value.dump();
    };
    std::string all;
    const Json document = Json::parse(output_.results);
    for (const Json& asset : document["assets"]) {
      all += all.empty() ? "" : ", ";
      for (const std::string change : asset["changes"]) {
        all += change + ' ';
      }
      all += text(asset["oldDefine"]) + '>' + text(asset["newDefine"]) + ' ' +
             text(asset["oldId"]) + '>' + text(asset["newId"]) + ' ' + asset["parameters"].dump();
    }
    return std::regex_replace(all, std::regex("SFX_"), "");
  }

  Json rebuild(const Lines& arguments) {
    EXPECT_NE(run({"diff", "--json"}, arguments), 2) << output_.messages;
    return Json::parse(output_.results)["rebuild"];
  }
};

TEST_F(DiffTest, MatchesByDefineThenContentThenId) {
  const std::string large(700000, 'l');
  const std::string other = large.substr(1) + 'x';
  const struct {
    const char* name;
    Version older, newer;
    std::string expected;
  } rows[]{
      {"same", "A=a B=b", "A=a B=b", ""},
      {"added", "A=a", "A=a B=b/3", "added ->B ->1 []"},
      {"removed before another", "A=a B=b", "B=b", "removed A>- 0>- [], moved B>B 1>0 []"},
      {"size", "A=a", "A=aa", "changed A>A 0>0 []"},
      {"type", {{{9, "a"}}, {"A"}}, {{{8, "a"}}, {"A"}}, "changed A>A 0>0 []"},
      {"parameters",
       {{{6, "a", {0, 1, 2, 3, 4, 5, 6, 7}}}, {"A"}},
       {{{6, "a", {9, 1, 2, 3, 4, 5, 6, 9}}}, {"A"}},
       "changed A>A 0>0 [0,7]"},
      {"several at once", "A=a B=b", "B=b Z=a/5",
       "moved changed renamed A>Z 0>1 [0], moved B>B 1>0 []"},
      {"define first", "A=a B=b", "A=b B=a", "changed A>A 0>0 [], changed B>B 1>1 []"},
      {"in another's place", "A=a B=b", "A=a Z=z", "changed renamed B>Z 1>1 []"},
      {"in no place of another", "A=a B=b", "B=b Z=z",
       "removed A>- 0>- [], moved B>B 1>0 [], added ->Z ->1 []"},
      {"equal blobs", "=x =y =x", "=x =x =x",
       "removed ->- 1>- [], moved ->- 2>1 [], added ->- ->2 []"},
      {"equal blobs and defines", "A=x B=x", "B=x C=x",
       "moved renamed A>C 0>1 [], moved B>B 1>0 []"},
      {"one define twice", "A=x A=y", "A=x A=y", ""},
      {"one header", "A=a B=b", "=b =a", "moved A>- 0>1 [], moved B>- 1>0 []"},
      {"empty blobs", "= =a", "=a =", "moved ->- 0>1 [], moved ->- 1>0 []"},
      {"no assets", "", "=a", "added ->- ->0 []"},
      {"large blobs of one size", "=" + large + " =" + other, "=" + other + " =" + large,
       "moved ->- 0>1 [], moved ->- 1>0 []"},
      {"last byte", "A=" + large + '1', "A=" + large + '2', "changed A>A 0>0 []"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const std::string older = write("old", row.older);
    const std::string newer = write("new", row.newer);
    EXPECT_EQ(run({"diff", older, newer, "--json"}), row.expected.empty() ? 0 : 1);
    EXPECT_EQ(assets(), row.expected);
    EXPECT_EQ(Json::parse(output_.results)["same"], row.expected.empty());
  }
}

TEST_F(DiffTest, PrintsALineForEachAssetAndASummary) {
  const std::string older = write("old", "A=a B\x1B=b C=c");
  const std::string newer =
      write("new", {{{1, "b", {2}}, {6, "aaa"}, {6, "c"}}, {"B\x1B", "A", "Z"}});
  EXPECT_EQ(run({"diff", older, newer}), 1);
  EXPECT_EQ(
      output_.results,
      "old  new  define          changes         details\n"
      "  0    1  SFX_A           moved, changed  1 -> 3 bytes\n"
      "  1    0  SFX_B\uFFFD          moved, changed  userAsset -> wave, parameter 0: 0 -> 2\n"
      "  2    2  SFX_C -> SFX_Z  renamed\n"
      "\n"
      "3 assets differ: 2 moved, 2 changed, 1 renamed\n"
      "The header differs: code that includes it must be rebuilt.\n");
  EXPECT_EQ(run({"diff", older, older}), 0);
  EXPECT_EQ(output_.results, "");
  EXPECT_EQ(run({"diff", older, write("new", "=a =b"), "--no-header"}), 1);
  EXPECT_THAT(output_.results, testing::HasSubstr("\n1 asset differs: 1 removed\n"));
}

TEST_F(DiffTest, SaysWhetherCodeMustBeRebuilt) {
  const std::string older = write("old", "A=abc");
  const std::string newer = write("new", "A=xyz");
  const std::string larger = write("larger", "A=abcde");
  EXPECT_EQ(rebuild({older, newer}), false);
  EXPECT_EQ(rebuild({older, write("padded", "A=abcd")}), false);
  EXPECT_EQ(rebuild({older, newer, "--no-header"}), nullptr);
  EXPECT_EQ(rebuild({older, larger, "--no-header"}), true);
  EXPECT_EQ(rebuild({older, larger, "--old-header", "larger/sfx.h"}), true);
  EXPECT_EQ(rebuild({older, newer, "--old-header", "larger/sfx.h"}), true);

  const std::string plain = std::regex_replace(header("A=abc"), std::regex("2001"), "2002");
  const auto rebuildsFor = [&](const std::string& text) {
    return rebuild({older, newer, "--new-header", folder_.write("named.h", text)});
  };
  EXPECT_EQ(rebuildsFor(plain), false);
  for (const char* word : {"ifndef\t_S", "define\t_S", "SFX_FILENAME", "\"sfx.tvb", "A\t\t"}) {
    std::string changed = plain;
    changed.insert(plain.find(word) + std::string(word).size() - 1, "X");
    EXPECT_EQ(rebuildsFor(changed), true) << word;
  }
}

TEST_F(DiffTest, ChecksTheIdsOfDefines) {
  const struct {
    const char* name;
    Version newer;
    int code;
    const char* messages;
  } rows[] = {
      {"same", "A=a B=b", 0, ""},
      {"changed and added", "A=x B=b C=a", 0, ""},
      {"gone", "A=a", 1, "SFX_B, id 1, is gone\n"},
      {"not in the bank", {{{6, "a"}}, {"A", "B"}}, 1, "SFX_B, id 1, is gone\n"},
      {"moved", "B=b A=a", 1, "SFX_A had id 0 and has 1\nSFX_B had id 1 and has 0\n"},
      {"no header", "=a", 2, "tavkit: --ids needs the headers of both banks\n"},
  };
  const std::string older = write("old", "A=a B=b");
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    EXPECT_EQ(run({"diff", "--ids", older, write("new", row.newer)}), row.code);
    EXPECT_EQ(output_.messages, row.messages);
  }
}

}  // namespace
}  // namespace tavrel::kit
