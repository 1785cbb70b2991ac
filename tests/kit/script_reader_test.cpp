// The reader of scripts for checks: what it finds in the words, where, and how it goes on.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "kit/check/allowances.h"
#include "kit/check/script_model.h"
#include "kit/check/source_text.h"
#include "kit/frame/captured_console.h"

namespace tavrel::kit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Reading {
  ScriptModel model;
  std::string problems;  ///< those that no comment allows: "code line:column", separated by blanks
};

Reading readText(const std::string& text) {
  const CapturedConsole silence;
  TokenFile file;
  ByteBlock block(new std::uint8_t[text.size()]);
  std::copy(text.begin(), text.end(), block.get());
  file.useMemory(block.release(), text.size());
  Findings findings;
  Reading reading{readScript(file, findings), ""};
  file.freeData();
  const SourceText source(text);
  const Allowances allowances(source, reading.model, findings);
  for (const Diagnostic& diagnostic : findings.sorted()) {
    if (allowances.allow(diagnostic)) {
      continue;
    }
    const Position place = source.positionOf(diagnostic.offset);
    reading.problems += (reading.problems.empty() ? "" : " ") + std::string(diagnostic.code->name) +
                        ' ' + std::to_string(place.line) + ':' + std::to_string(place.column);
  }
  return reading;
}

TEST(ScriptReaderTest, FindsWhatIsWrongWithTheWords) {
  const std::string name = "BankFileName a.tvb\n";
  const std::string end = "ScriptEnd\n";
  struct Row {
    std::string script, problems;
  };
  for (const Row& row : {
           Row{name + end, ""},
           Row{name + "ScriptEnd", ""},
           Row{name + "\tscriptend;x", ""},
           Row{"BANKFILENAME a.tvb\rscriptEND\r", ""},
           Row{name, "no-script-end 1:14"},
           Row{"", "no-bank-name 1:1"},
           Row{"; a comment\r\n" + end, "no-bank-name 1:1"},
           Row{"\xEF\xBB\xBF" + name + end, "byte-order-mark 1:1"},
           Row{"\xEF\xBB\xBF\n" + name + end, "byte-order-mark 1:1"},
           Row{name + "FxOutputBank s.fxo AssetEnd\nScriptEn", "last-word 3:1 unknown-word 3:1"},
           Row{name + "UserAsset x AssetEnd", "last-word 2:13 no-script-end 2:13"},
           Row{name + end + "x y\n", "after-end 3:1"},
           Row{name + end + "x", "after-end 3:1"},
           Row{name + end + std::string(1025, 'x'), "after-end 3:1"},
           Row{name + std::string(1025, 'x') + " y\n", "long-word 2:1"},
           Row{name + "UserAsset x Parameter0 " + std::string(1025, '9'), "long-word 2:24"},
           Row{name + "UserAsset " + std::string(1024, 'x') + " AssetEnd\n" + end, ""},
           Row{name + std::string(1024, 'x') + "\n" + end, "unknown-word 2:1"},
           Row{name + name + end, "second-bank-name 2:1"},
           Row{"BankFileName\n" + end, "missing-value 1:1"},
           Row{"BankFileName", "last-word 1:1 missing-value 1:1 no-script-end 1:1"},
           Row{"BankFileName\r\nScriptEnd", "missing-value 1:1"},
           // At the top level.
           Row{name + "Bogus words here\nUserAsset x AssetEnd\n" + end, "unknown-word 2:1"},
           Row{name + "UserAset x\n" + end, "unknown-word 2:1 unfinished-block 2:1"},
           Row{"BankFilename a.tvb BankFileNam b.tvb\n" + end,
               "unknown-word 1:20 second-bank-name 1:20"},
           Row{name + "ScripEnd\nBogus\n", "unknown-word 2:1 after-end 3:1"},
           // In blocks.
           Row{name + "UserAsset AssetEnd\n" + end, "missing-value 2:1"},
           Row{name + "WaveFile\nSampleRate 1 AssetEnd\n" + end, "missing-value 2:1"},
           Row{name + "UserAsset x\nWaveFile y AssetEnd\n" + end, "unfinished-block 2:1"},
           Row{name + "UserAsset x\n" + end, "unfinished-block 2:1"},
           Row{name + "UserAsset x\nBankFileName b.tvb\n" + end,
               "unfinished-block 2:1 second-bank-name 3:1"},
           Row{name + "UserAsset x Parameter0 1 Bogus 1 2 Parameter1 x AssetEnd\n" + end,
               "unknown-word 2:26 number-text 2:47"},
           Row{name + "WaveFile x SampelRate 22,050 Loop 2 AssetEnd\n" + end,
               "unknown-word 2:12 bad-flag 2:35"},
           Row{name + "FxOutputBank x AsetEnd\n" + end, "unknown-word 2:16"},
           Row{name + "UserAsset x\nWaveFil y AssetEnd\n" + end,
               "unfinished-block 2:1 unknown-word 3:1"},
           Row{name + "WaveFile x Loop AssetEnd\n" + end, "missing-value 2:12"},
           Row{name + "WaveFile x Loop Adpcm 1 AssetEnd\n" + end, "missing-value 2:12"},
           Row{name + "WaveFile x Loop ",
               "unfinished-block 2:1 missing-value 2:12 no-script-end 2:12"},
           Row{name + "WaveFile x Loop 1 LOOP 0 AssetEnd\n" + end, "repeated-option 2:19"},
           Row{name + "UserAsset x Parameter8 1 Parameter0 1 AssetEnd\n" + end,
               "unknown-word 2:13"},
           Row{"BankFileName a.tvb\r\n\r\n\t; c\r\n\tWaveFile x Loop 3 AssetEnd\r\n" + end,
               "bad-flag 4:18"},
           Row{name + "FxProgramBank x Loop 1 AssetEnd\n" + end, "unknown-word 2:17"},
       }) {
    EXPECT_EQ(readText(row.script).problems, row.problems) << row.script;
  }
}

TEST(ScriptReaderTest, ChecksValues) {
  struct Row {
    const char *statement, *option, *problem;
  };
  for (const Row& row : {
           Row{"WaveFile", "SampleRate 22050", ""},
           Row{"WaveFile", "SampleRate +1", ""},
           Row{"WaveFile", "SampleRate \xC3\xA4", "number-text"},
           Row{"WaveFile", "SampleRate -2147483648", ""},
           Row{"WaveFile", "SampleRate 2147483647", ""},
           Row{"WaveFile", "SampleRate 2147483648", "number-range"},
           Row{"WaveFile", "SampleRate -2147483649", "number-range"},
           Row{"WaveFile", "SampleRate 99999999999999999999999", "number-range"},
           Row{"UserAsset", "Parameter7 4294967295", ""},
           Row{"UserAsset", "Parameter7 4294967296", "number-range"},
           Row{"WaveFile", "SampleRate 22,050", "number-text"},
           Row{"WaveFile", "SampleRate 0x10", "number-text"},
           Row{"WaveFile", "SampleRate loud", "number-text"},
           Row{"WaveFile", "SampleRate -", "number-text"},
           Row{"WaveFile", "SampleRate 1-", "number-text"},
           Row{"WaveFile", "Adpcm 0", ""},
           Row{"WaveFile", "Adpcm 10", "flag-text"},
           Row{"MidiFileType0", "Loop 10", ""},
           Row{"WaveFile", "Adpcm yes", "bad-flag"},
           Row{"MidiToneBank", "BankType Drum", ""},
           Row{"MidiToneBank", "BankType drum", "bad-bank-type"},
           Row{"MidiToneBank", "BankType Drums", "bad-bank-type"},
       }) {
    const std::string start = std::string("BankFileName a\n") + row.statement + " x ";
    const std::string option = row.option;
    const std::size_t column =
        start.size() - 14 + option.find(' ') + 1;  // the first line has 15 characters
    const std::string problem =
        *row.problem == '\0' ? "" : row.problem + (" 2:" + std::to_string(column));
    EXPECT_EQ(readText(start + option + " AssetEnd\nScriptEnd\n").problems, problem) << row.option;
  }
}

TEST(ScriptReaderTest, LeavesOutWhatCommentsAllow) {
  const std::string start = "BankFileName a\n";
  const std::string blocks = "UserAsset x Parameter0 z AssetEnd\nUserAsset y Parameter0 z\n";
  const std::string end = "AssetEnd\nScriptEnd\n";
  const std::string both = "number-text 2:24 number-text 3:24";
  struct Row {
    std::string script, problems;
  };
  for (const Row& row : {
           Row{start + blocks + end, both},
           Row{start + blocks + "Parameter1 z " + end, both + " number-text 4:12"},
           Row{"; c\n;tavkit:allow flag-text,number-text\n" + start + blocks + end, ""},
           Row{"; c\n\n; tavkit: allow number-text\n" + start + blocks + end,
               "number-text 5:24 number-text 6:24"},
           Row{start + "UserAsset y Parameter0 z ; tavkit: allow number-text , flag-text\n" +
                   "Parameter1 z AssetEnd UserAsset x Parameter0 z " + end,
               "number-text 3:46"},
           Row{start + "UserAsset y Parameter0 z ; tavkit: allow flag-text\n" + end,
               "number-text 2:24"},
           Row{start + "ScriptEnd ; tavkit: allow numbertext, bad-flag\n",
               "unknown-code 2:27 unknown-code 2:39"},
           Row{"; tavkit: allow bad-flag\n" + start + "WaveFile x Loop 2 " + end,
               "unknown-code 1:17 bad-flag 3:17"},
           Row{start + "ScriptEnd ; tavkit: allow\n", ""},
           Row{start + "ScriptEnd ; tavkit: allowed\n; tavkit: allow numbertext\n", ""},
           Row{"\n; tavkit: allow flag-text,number-text\n" + start + blocks + end, ""},
           Row{"\xEF\xBB\xBF; tavkit: allow flag-text,number-text\n" + start + blocks + end,
               "byte-order-mark 1:1"},
       }) {
    EXPECT_EQ(readText(row.script).problems, row.problems) << row.script;
  }
}

TEST(ScriptReaderTest, DeliversTheBlocks) {
  const Reading reading = readText(
      "BankFileName a.tvb BankFileName b.tvb\n"
      "WaveFile x.wav SampleRate 22,050 Loop 0 Loop 10 AssetEnd\n"
      "WaveFile door slam.wav SampleRate 1 AssetEnd MidiToneBank k BankType Melodic AssetEnd\n"
      "UserAsset a;b.dat AssetEnd\nAssetEnd UserAsset\nScriptEnd\nUserAsset z AssetEnd\n");
  const ScriptModel& model = reading.model;
  ASSERT_EQ(model.bankNames.size(), 2U);
  EXPECT_EQ(model.bankNames[1].text, "b.tvb");
  EXPECT_THAT(model.statementStarts, ElementsAre(0, 19, 38, 95, 140, 181, 217, 227, 237));
  ASSERT_EQ(model.blocks.size(), 5U);
  EXPECT_EQ(model.blocks[0].valueOf(kWaveOptions[0]), 0);  // by default
  EXPECT_EQ(model.blocks[0].valueOf(kWaveOptions[1]), 22);
  EXPECT_EQ(model.blocks[0].valueOf(kWaveOptions[2]), 1);
  EXPECT_EQ(model.blocks[1].file->text, "door");
  EXPECT_EQ(model.blocks[1].strayWord->text, "slam.wav");
  EXPECT_EQ(model.blocks[1].wholeName, "door slam.wav");
  EXPECT_EQ(model.blocks[2].valueOf(kToneBankOptions[0]), 1);
  EXPECT_EQ(model.blocks[2].wholeName, "k");
  EXPECT_EQ(model.blocks[3].wholeName, "a;b.dat");
  EXPECT_TRUE(model.blocks[3].isFinished);
  EXPECT_FALSE(model.blocks[4].file);
}

}  // namespace
}  // namespace tavrel::kit
