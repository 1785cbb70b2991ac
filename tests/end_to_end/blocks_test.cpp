// Runs of scripts with blocks of one kind: each makes the expected asset, or fails and is left out.
#include <gtest/gtest.h>

#include "tests/support/expected_run.h"
#include "tests/support/midi_builder.h"
#include "tests/support/sound_builder.h"

namespace tavrel::test {
// A block that fails reads all its tokens here, so the run goes on as if it weren't there.
constexpr std::nullopt_t kFails = std::nullopt;

const Block kStored{kUserAsset, "after", "", {{0}}, "the failed blocks"};

// The words of a wave: sample rate, loop, bits, random pitch amount, start and end of the loop.

TEST(WaveBlock, StoresTheSamplesOfAWavFileAsItsOptionsSay) {
  const std::string file = R"(one\16.WAV)";
  const std::string samples = Bytes().le16(1000).le16(900).le16(0xFE0C).le16(0).le32(0x7FFF7FFF);
  const std::string numbers = "SampleRate 1 RandomPitchAmount -7;\r\nSampleRate 2";
  const std::vector<Block> blocks = {
      {kWave, file, "Adpcm 1 Loop 1", {{0, 1, 16, 0, 0, 6}}, samples},
      {kWave, file, "Loop 1 Adpcm 1 Loop 0", {{0, 0, 4}}, "\x77\x1F\x77\x80"},
      {kWave, file, numbers, {{2, 0, 16, -7}}, samples},
      {kWave, "8.wav", "Loop 0 Adpcm 1", {{0, 0, 8}}, {"\0\x7F\xFF", 3}},
      {kWave, "8.wav", "loop 10", {{0, 1, 8, 0, 0, 3}}, {"\0\x7F\xFF", 3}},
      {kWave, "4.wav", "Loop 1", {{0, 1, 4, 0, 0, 2}}, "a"},
      {kWave, "24.wav", "Loop 1", {{0, 1, 24}}, "abcdef"}};
  expectRun({.blocks = blocks,
             .files = {{"one/16.WAV", wav().fmt(stereo, 16, 44100).data(samples).str()},
                       {"8.wav", wav().fmt(mono, 8, 8000).data("\x80\xFF\x7F").str()},
                       {"4.wav", wav().fmt(mono, 4, 8000).data("a").str()},
                       {"24.wav", wav().fmt(mono, 24, 8000).data("abcdef").str()}},
             .problems = "\nWARNING: ADPCM not allowed on loops, 16.WAV not compressed.\n\n"});
}

const AiffBuilder kSound = aiff().comm(mono, 2, 16).ssnd("\x34\x12\x78\x56");

TEST(WaveBlock, StoresTheSamplesAndTheSustainLoopOfAnAiffFile) {
  // A loop names its markers by their places in the file, not by their ids.
  const AiffBuilder marked = AiffBuilder(kSound).mark({{2, 70000, "later"}, {1, 0xFFF00000}});
  // Makes the bank 224 bytes long, so that it has no padding at its end.
  const std::string plain = "\x01\xFF\x80 " + std::string(28, 'p');
  const std::string options = "SampleRate 8 Loop 1";
  expectRun(
      {.blocks = {{kAiff, "l.aif", options, {{8, 1, 16, 0, 70000, -0x100000}}, "\x12\x34\x56\x78"},
                  {kAiff, "l.aif", "", {{0, 0, 16}}, "\x12\x34\x56\x78"},
                  {kAiff, "l.aif", "Adpcm 1", {{0, 0, 4}}, "\x77\x80\x80\x80"},
                  {kAiff, "8.aif", "Loop 1", {{0, 1, 8}}, plain}},
       .files = {{"l.aif", AiffBuilder(marked).inst({2, 1, 2}).str()},
                 {"8.aif", aiff().comm(mono, 32, 8).ssnd(plain).str()}}});
}

TEST(WaveBlock, FailsForABadFileOrOption) {
  const std::string error = "ERROR: File: ";
  expectRun(
      {.blocks = {{kWave, "none.wav", "", kFails, error + "none.wav not found.\n"},
                  {kWave, "a.b.aif", "", kFails, error + "a.b.aif not found.\n"},
                  {kWave, "0", "", kFails, error + "0 has a 0 size wave data section.\n"},
                  {kWave, "8.wav", "Adpcm 1 Loop 2", kFails},
                  {kAiff, "l.AIF", "", kFails, error + "l.AIF has corrupt loop information.\n"},
                  kStored},
       .files = {{"a.b.aif", kSound.str()},
                 {"0", wav().fmt(mono, 8, 1).data("").str()},
                 {"8.wav", wav().fmt(mono, 8, 8000).data("ab").str()},
                 {"l.AIF", AiffBuilder(kSound).inst({1, 1, 2}).str()}}});
}

// The words of a sequence: division, volume, GM mode, loop, nothing, tempo.
TEST(SequenceBlock, StoresTheWholeFileOrIsLeftOut) {
  const std::string song = midi(0xE728).track(events().tempo(9, 0xFFFFFF).endOfTrack());
  const std::string notFound = "File System Error: File \"none\" Not Found\n";
  const std::string unfit = "Error: The file \"1\" is not a type 0 Standard MIDI File\n";
  const std::vector<Block> blocks = {
      {kMidi, "none", "AssetEnd", kFails, notFound},
      {kMidi, "1", "AssetEnd", kFails, unfit},
      {kMidi, "still.mid", "AssetEnd", kFails},
      {kMidi, "none", "Adpcm", kFails, unidentified("Adpcm")},
      {kMidi, "song.mid", "", {{-6360, 127, 1, 0, 0, 0xFFFFFF}}, song},
      {kMidi, "t", "volume x GMMODE -2 Loop 3", {{-6360, 0, -2, 3, 0, 0xFFFFFF}}, song + "t"}};
  expectRun({.blocks = blocks,
             .files = {{"1", midi(96, 1).track(events().tempo(0, 1))},
                       {"still.mid", midi().track(events().endOfTrack())}}});
}

TEST(OpaqueBlock, StoresTheWholeFileOrFails) {
  const std::string badArgument = "Bad Argument for BankType token.\n";
  const std::string countDown =
      "Parameter7 4294967295 Parameter6 0x10 Parameter5 -2147483648 Parameter4 5 "
      "Parameter3 4 Parameter3 -4x parameter2 3 Parameter1 2 Parameter0 1";
  const std::vector<Block> blocks = {
      {kToneBank, "empty", "BankType Drums", kFails, badArgument + unidentified("Drums")},
      {kToneBank, "empty", "BankType melodic", kFails, badArgument + unidentified("melodic")},
      {kFxOutputBank, "empty", "BankType", kFails},
      {kFxProgramBank, "none", "", kFails},
      {kUserAsset, "empty", "Parameter8", kFails, unidentified("Parameter8")},
      {kToneBank, "one/x.mtb", "BankType Drum BANKTYPE Melodic", {{1}}, "a tone bank"},
      {kToneBank, "Wah~1.B~n", "BankType Melodic BankType Drum", {{0}}, ""},
      {kFxOutputBank, "a-1.b.cdefg", "", {{0}}, "three"},
      {kFxProgramBank, std::string(75, 'L') + ".bin", "", {{0}}, {"\r\n\0\x1A\xFF;", 6}},
      {kUserAsset, "nine", countDown, {{1, 2, 3, -4, 5, INT32_MIN, 0, -1}}, "nine bytes"},
      {kUserAsset, "empty", "", {{0}}, ""},
      {kUserAsset, "empty", "Parameter0 1", kFails},  // cut off by the end of the script
  };
  // A tilde becomes an underscore in the name of an asset, not in the prefix.
  expectRun({.arguments = "a.txt HeaderPrefix s~fx", .blocks = blocks, .prefix = "S~FX"});
}

}  // namespace tavrel::test
