// What the check of a block's file finds, where, and what it says. The tool judges each case: it
// must store exactly what the check says, and refuse nothing without an error.
#include "kit/check/asset_check.h"

#include "compiler/bank_script.h"
#include "kit/check/source_text.h"
#include "platform/file_cache.h"
#include "tests/kit/asset_check_rows.h"
#include "tests/kit/command_test.h"

namespace tavrel::kit {
namespace {

using namespace tavrel::test;
using testing::HasSubstr;

/// What may be an error although the tool packs everything.
const std::set<std::string_view> kJudgements{"encoding",    "stereo-aiff", "damaged-sound",
                                             "empty-sound", "broken-loop", "sequence-broken"};

class AssetCheckTest : public CommandTest {
 protected:
  /// Checks a script of one block, and compares what is found with what the tool does.
  void check(const std::string& block) {
    const CapturedConsole silence;
    const std::string text = "BankFileName b.tvb\n" + block + " AssetEnd\nScriptEnd\n";
    TokenFile script;
    load(script, text);
    Findings findings;
    const ScriptModel model = readScript(script, findings);
    script.freeData();
    FolderNames folders;
    const CheckedAsset asset = checkAsset(model.blocks.at(0), folders, findings);
    found_ = said_ = "";
    bool isRefused = false;
    bool isFault = false;
    for (const Diagnostic& one : findings.sorted()) {
      const Position place = SourceText(text).positionOf(one.offset);
      found_ += (found_.empty() ? "" : " ") + std::string(one.code->name);
      if (place.line != 2 || place.column != block.find(' ') + 2) {
        found_ += ' ' + std::to_string(place.line) + ':' + std::to_string(place.column);
      }
      said_ += one.message + ". " + one.hint + "\n";
      const bool isError = one.code->severity == Severity::error;
      isFault = isFault || isError;
      isRefused = isRefused || (isError && !kJudgements.contains(one.code->name));
    }
    BankScript tool("script.txt");
    load(tool, text);
    tool.parseStatements();
    tool.freeData();
    const bool isStored = tool.assets.size() == 1;
    EXPECT_EQ(asset.isStored, isStored);
    EXPECT_TRUE(isStored ? !isRefused : isFault) << found_;
    EXPECT_EQ(asset.size, isStored ? tool.entries[0]->size : 0);
    EXPECT_EQ(asset.paddedSize, isStored ? tool.assets[0]->paddedSize : 0);
  }

  static void load(TokenFile& file, const std::string& text) {
    file.useMemory(blockOf(text).release(), text.size());
  }

  std::string found_, said_;
};

TEST_F(AssetCheckTest, FindsExactlyWhatIsWrong) {
  write("hit_1.wav", "");  // what new names must not replace
  for (const AssetRow& row : kAssetRows) {
    SCOPED_TRACE(row.name);
    write(row.file(), row.content);
    check(row.block);
    EXPECT_EQ(found_, row.found);
    EXPECT_THAT(said_, HasSubstr(row.said));
    fs::remove(row.file());
  }
}

TEST_F(AssetCheckTest, LooksForFewNamesInAWrongFolder) {
  constexpr int kFiles = 1000;
  for (int i = 0; i < kFiles; ++i) {
    write("f" + std::to_string(i), "");
  }
  FolderNames folders;
  for (int i = 0; i < 2'000'000 / kFiles; ++i) {
    EXPECT_EQ(folders.nearestName(i == 0 ? "f10x" : "not one of these"), i == 0 ? "f10" : "");
  }
  EXPECT_EQ(folders.nearestName("f10x"), "");
}

TEST_F(AssetCheckTest, AgreesWithTheToolOnEveryDamagedFile) {
  FileCache cache;
  setFileCache(&cache);
  for (const AssetRow& row : kAssetRows) {
    SCOPED_TRACE(row.name);
    const auto checkBytes = [&](const std::string& bytes) {
      cache.add(row.file(), {blockOf(bytes), bytes.size()});
      check(row.block);
    };
    write(row.file(), row.content);
    for (std::size_t i = 0; i < row.content.size() && !HasFailure(); ++i) {
      checkBytes(row.content.substr(0, i));
      for (const int flipped : {0x01, 0x80, 0xFF}) {
        std::string damaged = row.content;
        damaged[i] = static_cast<char>(damaged[i] ^ flipped);
        checkBytes(damaged);
      }
    }
    cache.remove(row.file());
    fs::remove(row.file());
  }
  setFileCache(nullptr);
}

TEST_F(AssetCheckTest, FindsTheFileThatOtherCaseMeans) {
  write("Boom.wav", kGood);
  const bool ignoresCase = fs::exists("BOOM.WAV");
  check(waveBlock("boom.WAV"));
  EXPECT_EQ(found_, ignoresCase ? "case-differs" : "missing-file");
  EXPECT_THAT(said_, HasSubstr("Boom.wav"));
  const std::string parts =
      "../" + fs::path(folder_.path()).parent_path().filename().string() + "/./";
  check(waveBlock(parts + "boom.WAV"));
  EXPECT_THAT(said_, HasSubstr(parts + "Boom.wav"));
  check(waveBlock("Boom.wav"));
  EXPECT_EQ(found_, "");
}

}  // namespace
}  // namespace tavrel::kit
