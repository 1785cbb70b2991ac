// The reader of scripts for checks: what it finds in the words, where, and how it goes on.
#include <gtest/gtest.h>

#include "kit/check/allowances.h"
#include "kit/check/script_model.h"
#include "kit/check/source_text.h"
#include "kit/frame/captured_console.h"
#include "tests/support/bytes.h"

namespace tavrel::kit {
namespace {

/// Returns the problems that no comment allows: "code line:column", separated by blanks.
std::string problemsOf(const std::string& text) {
  const CapturedConsole silence;
  TokenFile file;
  file.useMemory(test::blockOf(text).release(), text.size());
  Findings findings;
  const ScriptModel model = readScript(file, findings);
  file.freeData();
  const SourceText source(text);
  const Allowances allowances(source, model, findings);
  std::string problems;
  for (const Diagnostic& diagnostic : findings.sorted()) {
    if (!allowances.allow(diagnostic)) {
      const Position place = source.positionOf(diagnostic.offset);
      problems += (problems.empty() ? "" : " ") + std::string(diagnostic.code->name) + ' ' +
                  std::to_string(place.line) + ':' + std::to_string(place.column);
    }
  }
  return problems;
}

/// Scripts with the same problems.
struct Group {
  std::string problems;
  std::vector<std::string> scripts;
};

void expectProblems(const std::vector<Group>& groups, const std::string& before = "",
                    const std::string& after = "") {
  for (const auto& [problems, scripts] : groups) {
    for (const std::string& script : scripts) {
      EXPECT_EQ(problemsOf(before + script + after), problems) << script;
    }
  }
}

TEST(ScriptReaderTest, FindsWhatIsWrongWithTheWords) {
  const std::string mark = "\xEF\xBB\xBF";
  const std::string name = "BankFileName a.tvb\n";
  const std::string end = "ScriptEnd\n";
  const std::string tooLong(1025, 'x');
  expectProblems({
      {"",
       {name + end, name + "ScriptEnd", name + "\tscriptend;x", "BANKFILENAME a.tvb\rscriptEND\r"}},
      {"no-script-end 1:14", {name}},
      {"no-bank-name 1:1", {"", "; a comment\r\n" + end}},
      {"byte-order-mark 1:1",
       {mark + name + end, mark + "\n" + name + end, mark + mark + mark + name + end,
        "\xFE\xFF B \n"}},
      {"unknown-word 1:1", {std::string("RIFF\0 a\n", 8) + name, "\x7F\xFF \x01"}},
      {"unknown-word 1:1 unknown-word 2:13",
       {"BankFileName=a.tvb\nUserAsset x Parameter0=1 AssetEnd\n" + end}},
      {"last-word 3:1 unknown-word 3:1", {name + "FxOutputBank s.fxo AssetEnd\nScriptEn"}},
      {"last-word 2:13 no-script-end 2:13", {name + "UserAsset x AssetEnd"}},
      {"after-end 3:1", {name + end + "x y\n", name + end + "x", name + end + tooLong}},
      {"long-word 2:1", {name + tooLong + " y\n"}},
      {"long-word 2:24", {name + "UserAsset x Parameter0 " + tooLong}},
      {"missing-value 1:1", {"BankFileName\n" + end, "BankFileName\r\nScriptEnd"}},
      {"last-word 1:1 missing-value 1:1 no-script-end 1:1", {"BankFileName"}},
      {"unknown-word 1:20 second-bank-name 1:20", {"BankFilename a.tvb BankFileNam b.tvb\n" + end}},
      {"unknown-word 2:1 after-end 3:1", {name + "ScripEnd\nBogus\n"}},
      {"unfinished-block 2:1 missing-value 2:12 no-script-end 2:12", {name + "WaveFile x Loop "}},
      {"bad-flag 4:18",
       {"BankFileName a.tvb\r\n\r\n\t; c\r\n\tWaveFile x Loop 3 AssetEnd\r\n" + end}},
  });
  expectProblems(
      {
          {"", {"UserAsset " + tooLong.substr(1) + " AssetEnd"}},
          {"unknown-word 2:1", {tooLong.substr(1), "Bogus words here\nUserAsset x AssetEnd"}},
          {"second-bank-name 2:1", {name}},
          {"unknown-word 2:1 unfinished-block 2:1", {"UserAset x"}},
          {"missing-value 2:1", {"UserAsset AssetEnd", "WaveFile\nSampleRate 1 AssetEnd"}},
          {"unfinished-block 2:1", {"UserAsset x\nWaveFile y AssetEnd", "UserAsset x"}},
          {"unfinished-block 2:1 second-bank-name 3:1", {"UserAsset x\nBankFileName b.tvb"}},
          {"unknown-word 2:26 number-text 2:47",
           {"UserAsset x Parameter0 1 Bogus 1 2 Parameter1 x AssetEnd"}},
          {"unknown-word 2:12 bad-flag 2:35", {"WaveFile x SampelRate 22,050 Loop 2 AssetEnd"}},
          {"unknown-word 2:16", {"FxOutputBank x AsetEnd"}},
          {"unfinished-block 2:1 unknown-word 3:1", {"UserAsset x\nWaveFil y AssetEnd"}},
          {"missing-value 2:12", {"WaveFile x Loop AssetEnd", "WaveFile x Loop Adpcm 1 AssetEnd"}},
          {"repeated-option 2:19", {"WaveFile x Loop 1 LOOP 0 AssetEnd"}},
          {"unknown-word 2:13", {"UserAsset x Parameter8 1 Parameter0 1 AssetEnd"}},
          {"unknown-word 2:17", {"FxProgramBank x Loop 1 AssetEnd"}},
      },
      name, '\n' + end);
}

TEST(ScriptReaderTest, ChecksValues) {
  const std::string name = "BankFileName a\n";
  const std::string end = " AssetEnd\nScriptEnd\n";
  expectProblems(
      {
          {"", {"22050", "+1", "-2147483648", "2147483647"}},
          {"number-text 2:23", {"\xC3\xA4", "22,050", "0x10", "loud", "-", "1-"}},
          {"number-range 2:23", {"2147483648", "-2147483649", "99999999999999999999999"}},
      },
      name + "WaveFile x SampleRate ", end);
  expectProblems(
      {
          {"",
           {"UserAsset x Parameter7 4294967295", "WaveFile x Adpcm 0", "MidiFileType0 x Loop 10",
            "MidiToneBank x BankType Drum"}},
          {"number-range 2:24", {"UserAsset x Parameter7 4294967296"}},
          {"flag-text 2:18", {"WaveFile x Adpcm 10"}},
          {"bad-flag 2:18", {"WaveFile x Adpcm yes"}},
          {"bad-bank-type 2:25", {"MidiToneBank x BankType drum", "MidiToneBank x BankType Drums"}},
      },
      name, end);
}

TEST(ScriptReaderTest, ReadsValuesAsTheToolDoes) {
  const auto valueOf = [](const Option& option, const std::string& text) {
    ScriptBlock block;
    block.options.push_back({.row = &option, .keyword = {}, .value = ScriptWord{text}});
    return block.valueOf(option);
  };
  EXPECT_EQ(valueOf(kWaveOptions[1], "22,050"), 22);
  EXPECT_EQ(valueOf(kWaveOptions[2], "10"), 1);
  EXPECT_EQ(valueOf(kToneBankOptions[0], "Melodic"), 1);
}

TEST(ScriptReaderTest, LeavesOutWhatCommentsAllow) {
  const std::string start = "BankFileName a\n";
  const std::string end = "AssetEnd\nScriptEnd\n";
  const std::string blocks =
      start + "UserAsset x Parameter0 z AssetEnd\nUserAsset y Parameter0 z\n";
  const std::string both = "number-text 2:24 number-text 3:24";
  const std::string allowed = "; tavkit: allow flag-text,number-text\n" + blocks + end;
  expectProblems({
      {both, {blocks + end}},
      {both + " number-text 4:12", {blocks + "Parameter1 z " + end}},
      {"",
       {"; c\n;tavkit:allow flag-text,number-text\n" + blocks + end, "\n" + allowed,
        start + "ScriptEnd ; tavkit: allow\n", start + "ScriptEnd\nx ; tavkit: allow after-end\n",
        start + "ScriptEnd ; tavkit: allowed\n; tavkit: allow numbertext\n"}},
      {"byte-order-mark 1:1", {"\xEF\xBB\xBF" + allowed}},
      {"number-text 5:24 number-text 6:24",
       {"; c\n\n; tavkit: allow number-text\n" + blocks + end}},
      {"number-text 3:46",
       {start + "UserAsset y Parameter0 z ; tavkit: allow number-text , flag-text\n" +
        "Parameter1 z AssetEnd UserAsset x Parameter0 z " + end}},
      {"number-text 2:24", {start + "UserAsset y Parameter0 z ; tavkit: allow flag-text\n" + end}},
      {"unknown-code 2:27 unknown-code 2:39",
       {start + "ScriptEnd ; tavkit: allow numbertext, bad-flag\n"}},
      {"unknown-code 1:17 bad-flag 3:17",
       {"; tavkit: allow bad-flag\n" + start + "WaveFile x Loop 2 " + end}},
  });
}

}  // namespace
}  // namespace tavrel::kit
