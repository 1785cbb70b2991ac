#include <gtest/gtest.h>

#include "tests/support/expected_run.h"
#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"

namespace tavrel::test {
namespace {

const std::string kParseFails = "Error: Failed to parse script...\n";

std::string unidentified(const std::string& token, int line) {
  return "Script File: a.txt\nError: Unidentified token: " + token +
         " at line: " + std::to_string(line) + '\n';
}

TEST(Run, EachBlockFailsInItsOwnWordsOrItsAssetReachesBankAndHeader) {
  const std::string noAiff = "ERROR: This is not a 'AIFF' file.\nERROR: Not an AIFF file.\n";
  const std::string drums = "Bad Argument for BankType token.\n" + unidentified("Drums", 15);
  const std::string folder = R"(one\16.WAV)";
  const std::string numbers = "SampleRate 1 RandomPitchAmount -7;\r\nSampleRate 2";
  const std::string steps = Bytes().le16(1000).le16(900).le16(0xFE0C).le16(0).le32(0x7FFF7FFF);
  const std::string song = midi(0xE728).track(events().tempo(9, 0xFFFFFF).endOfTrack());
  const std::string countDown =
      "Parameter7 4294967295 Parameter6 0x10 Parameter5 -2147483648 Parameter4 5 "
      "Parameter3 4 Parameter3 -4x parameter2 3 Parameter1 2 Parameter0 1";
  const std::vector<Block> blocks = {
      {kWave, "none.wav", "", {}, "ERROR: File: none.wav not found.\n"},
      {kWave, "x.aiff", "", {}, "ERROR: File: x.aiff not found.\n"},
      {kWave, "a.b.aif", "", {}, "ERROR: File: a.b.aif not found.\n"},
      {kWave, "0", "", {}, "ERROR: File: 0 has a 0 size wave data section.\n"},
      {kWave, "8.wav", "Loop 2", {}, ""},
      {kWave, "8.wav", "Volume", {}, unidentified("Volume", 7)},
      {kAiff, "w.aif", "", {}, noAiff + "ERROR: File: w.aif not found.\n"},
      {kAiff, "l.AIF", "", {}, "ERROR: File: l.AIF has corrupt loop information.\n"},
      {kMidi, "none", "AssetEnd", {}, "File System Error: File \"none\" Not Found\n"},
      {kMidi, "1", "AssetEnd", {}, "Error: The file \"1\" is not a type 0 Standard MIDI File\n"},
      {kMidi, "still.mid", "AssetEnd", {}, ""},
      {kMidi, "empty", "AssetEnd", {}, ""},
      {kToneBank, "empty", "Volume", {}, unidentified("Volume", 14)},
      {kToneBank, "empty", "BankType Drums", {}, drums},
      {kFxOutputBank, "empty", "BankType", {}, ""},
      {kFxProgramBank, "none", "", {}, ""},
      {kUserAsset, "empty", "Parameter8", {}, unidentified("Parameter8", 18)},
      // Those above leave nothing unread, so the run goes on as if they weren't there.
      {kWave, folder, "Adpcm 1 Loop 1", {{0, 1, 16, 0, 0, 6}}, steps},
      {kWave, folder, "Loop 1 Adpcm 1 Loop 0", {{0, 0, 4}}, "\x77\x1F\x77\x80"},
      {kWave, folder, numbers, {{2, 0, 16, -7}}, steps},
      {kWave, "8.wav", "Loop 0 Adpcm 1", {{0, 0, 8}}, {"\0\x7F\xFF", 3}},
      {kWave, "8.wav", "loop 10", {{0, 1, 8, 0, 0, 3}}, {"\0\x7F\xFF", 3}},
      {kWave, "4.wav", "Loop 1", {{0, 1, 4, 0, 0, 2}}, "a"},
      {kWave, "4.wav", "Adpcm 1", {{0, 0, 4}}, "a"},
      {kWave, "24.wav", "Loop 1", {{0, 1, 24}}, "abcdef"},
      {kWave, "24.wav", "Adpcm 1", {{0, 0, 24}}, "abcdef"},
      {kAiff, "8.aif", "Loop 1", {{0, 1, 8}}, "\x01\xFF\x80"},
      {kAiff,
       "good.aif",
       "SampleRate 8 Loop 1",
       {{8, 1, 16, 0, 70000, -1048576}},
       "\x12\x34\x56\x78"},
      {kAiff, "good.aif", "", {{0, 0, 16}}, "\x12\x34\x56\x78"},
      {kMidi, "song.mid", "", {{-6360, 127, 1, 0, 0, 0xFFFFFF}}, song},
      {kMidi, "t", "volume x GMMODE -2 Loop 3", {{-6360, 0, -2, 3, 0, 0xFFFFFF}}, song + "t"},
      {kToneBank, "one/x.mtb", "BankType Drum BANKTYPE Melodic", {{1}}, "21 bytes"},
      {kToneBank, "Wah~1.B~n", "BankType Melodic BankType Drum", {{0}}, ""},
      {kFxOutputBank, "a-1.b.cdefg", "", {{0}}, "three"},
      {kFxProgramBank, std::string(75, 'L') + ".bin", "", {{0}}, {"\r\n\0\x1A\xFF;", 6}},
      {kUserAsset, "nine", countDown, {{1, 2, 3, -4, 5, INT32_MIN, 0, -1}}, "nine bytes"},
      {kUserAsset, "empty", "", {{0}}, ""},
      {kUserAsset, "empty", "Parameter0 1", {}, ""},  // cut off by the end of the script
  };
  const AiffBuilder sound = aiff().comm(mono, 2, 16).ssnd("\x34\x12\x78\x56");
  const AiffBuilder marked = AiffBuilder(sound).mark({{2, 70000, "later"}, {1, 0xFFF00000}});
  expectRun({.blocks = blocks,
             .files = {{"x.aiff", sound.str()},
                       {"a.b.aif", sound.str()},
                       {"0", wav().fmt(mono, 8, 1).data("").str()},
                       {"w.aif", wav().fmt(mono, 8, 8000).data("ab").str()},
                       {"l.AIF", AiffBuilder(sound).inst({1, 1, 2}).str()},
                       {"1", midi(96, 1).track(events().tempo(0, 1))},
                       {"still.mid", midi().track(events().endOfTrack())},
                       {"one/16.WAV", wav().fmt(stereo, 16, 44100).data(steps).str()},
                       {"8.wav", wav().fmt(mono, 8, 8000).data("\x80\xFF\x7F").str()},
                       {"4.wav", wav().fmt(mono, 4, 8000).data("a").str()},
                       {"24.wav", wav().fmt(mono, 24, 8000).data("abcdef").str()},
                       {"8.aif", aiff().comm(mono, 3, 8).ssnd("\x01\xFF\x80").str()},
                       {"good.aif", AiffBuilder(marked).inst({2, 1, 2}).str()}},
             .problems = "\nWARNING: ADPCM not allowed on loops, 16.WAV not compressed.\n\n"});
}

TEST(Run, OneThatFailsTellsWhyAndLeavesOldFilesAlone) {
  const std::string bank = "BankFileName sfx.tvb";
  const std::string name(77, 'n');
  const std::string tooLong = " is too long, only 79 chars allowed\n";
  const std::string longAsset = "ERROR: Asset name " + name + "_bi" + tooLong;
  const std::string longGuard = "ERROR: Header guard _" + name + "_H" + tooLong;
  const std::string line = "Writing Bank File: ";
  const std::string header = "Error: Failed to write header...\n";
  const std::string tooMany = "ERROR: Asset e_ is one too many, only 32768 assets allowed\n";
  std::string many;
  std::string reading;
  for (int i = 0; i < 32768; ++i) {
    many += "UserAsset e AssetEnd ";
    reading += "Reading Unknown File: e\n";
  }
  const std::string rows[][3] = {
      {"; BankFileName sfx.tvb \n", "", kParseFails},
      {"ScriptEnd " + bank + '\n', "", kParseFails},
      {bank + "\nBankFileName\n", "", kParseFails},
      {bank, "", kParseFails},
      // Two line feeds count as one line end, two pairs of carriage return and line feed as two.
      {bank + "\n\n; note\nFoo;bar\n", "", unidentified("Foo", 3) + kParseFails},
      {bank + "\r\n\r\n; note\r\nAssetEnd\r\n", "", unidentified("AssetEnd", 4) + kParseFails},
      {"UserAsset " + name + ".bi ", "", longAsset + kParseFails},
      {many + "UserAsset e Foo ", reading, tooMany + unidentified("Foo", 1) + kParseFails},
      {"BankFileName " + name + ".x ", line + name + ".x\n", longGuard + header},
      // These two names are those of folders.
      {"BankFileName one ", line + "one\n", "Error: Failed to write bank...\n"},
      {"BankFileName two.x ", line + "two.x\nWriting Header File: two.h\n", header}};
  const std::string empty(32, '\0');
  for (const auto& [script, lines, problems] : rows) {
    expectRun({.script = script,
               .files = {{"two.x", empty}, {name + ".x", empty}, {"e", ""}},
               .problems = problems,
               .failure = lines});
  }
}

TEST(Run, ATokenOf1025CharactersEndsTheScript) {
  const std::string token(1025, 'x');
  const std::string problem =
      "File: a.txt Line #: 2 has an oversize token, only 1024 chars allowed per token\n";
  expectRun({.script = "BankFileName sfx.tvb\n" + token + " Foo ", .problems = problem});
  expectRun({.script = "BankFileName sfx.tvb\nBankFileName " + token + " Foo ",
             .problems = problem + kParseFails,
             .failure = ""});
}

TEST(Run, BothStreamsComeInTheOrderOfTheSteps) {
  expectRun(
      {.arguments = "a.txt 2>&1",
       .script = "UserAsset none AssetEnd\n",
       .failure = "Reading Unknown File: none\n" + unidentified("AssetEnd", 1) + kParseFails});
}

TEST(Run, BankFileNameGivesAllOtherNames) {
  const std::string longest(76, 'x');
  const std::string rows[][5] = {{"bankfilename first.x\t", "Boom.bin", "Boom.h", "Boom", "FIRST"},
                                 {"", "bo.x.y", "bo.x.h", "bo", "BO"},
                                 {"", R"(one\a~b.tvb)", R"(one\a~b.h)", R"(one\a~b)", R"(ONE\A~B)"},
                                 {"", longest, longest + ".h", longest, std::string(76, 'X')},
                                 {"", ".tvb", ".h", "", ""}};
  for (const auto& [before, bank, header, base, prefix] : rows) {
    expectRun({.script = before + "BANKFILENAME " + bank + ";BankFileName x\rscriptend Foo ",
               .base = base,
               .bankName = bank,
               .headerName = header,
               .prefix = prefix});
  }
}

TEST(Run, KeywordsAreAppliedItemByItem) {
  const std::string longest(80, 'p');
  const ExpectedRun rows[] = {
      {.arguments = "a.txt bankPath no/ BANKPATH one/ bankPath", .bankPath = "one/"},
      {.arguments = "a.txt bankPathx no/ scriptPath one/", .scriptFile = "one/a.txt"},
      {.arguments = "a.txt headerpath two.h/ junk", .headerPath = "two.h/"},
      {.arguments = "a.txt HeaderPrefix " + longest, .prefix = std::string(80, 'P')},
      {.arguments = "a.txt HeaderPrefix x HeaderPrefix x" + longest},
      {.arguments = "bankPath one/", .scriptFile = "bankPath", .bankPath = "one/"},
      // A value is tested only for the keywords after its own, in the order of this row.
      {.arguments = "s bankPath scriptPath headerPath HeaderPrefix x",
       .scriptFile = "headerPaths",
       .bankPath = "scriptPath",
       .headerPath = "HeaderPrefix",
       .prefix = "X"},
      {.arguments = "a.txt bankPath bankPath one/", .bankPath = "bankPath"},
      {.arguments = "a.txt HeaderPrefix bankPath one/", .prefix = "BANKPATH"}};
  for (const ExpectedRun& run : rows) {
    expectRun(run);
  }
}

/// The script that everyone begins with. Its bank is full by itself and gets no padding.
TEST(Run, TakesASoundAndASequenceEveryStepOfTheWay) {
  std::string song = midi(480).track(events().tempo(0, 500000).endOfTrack());
  song.resize(2012);
  const std::string boom = wav().fmt(mono, 16, 11025).data(std::string(4000, '\0'));
  expectRun({.script = "; sound effects of level one\r\nBankFileName sfx.tvb\r\n"
                       "WaveFile boom.wav\r\nSampleRate 22050\r\nLoop 0\r\nAdpcm 1\r\nAssetEnd\r\n"
                       "MidiFileType0 theme.mid\r\nVolume 100\r\nAssetEnd\r\nScriptEnd\r\n",
             .blocks = {{kWave, "boom.wav", "", {{22050, 0, 4}}, std::string(1000, '\x80')},
                        {kMidi, "theme.mid", "", {{480, 100, 1, 0, 0, 500000}}, song}},
             .files = {{"boom.wav", boom}}});
}

}  // namespace
}  // namespace tavrel::test
