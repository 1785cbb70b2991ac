#include <gtest/gtest.h>

#include "tests/support/expected_run.h"
#include "tests/support/midi_builder.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {
namespace {

/// The script that everyone begins with: a compressed sound and a sequence.
constexpr const char* kScript =
    "; sound effects of level one\r\nBankFileName sfx.tvb\r\nWaveFile boom.wav\r\n"
    "SampleRate 22050\r\nLoop 0\r\nAdpcm 1\r\nAssetEnd\r\nMidiFileType0 theme.mid\r\n"
    "Volume 100\r\nAssetEnd\r\nScriptEnd\r\n";

constexpr const char* kReading = "Reading Wave File: boom.wav\nReading Midi File: theme.mid\n";

/// 2000 samples of silence: their codes alternate 0 and 8.
const std::string kBoom = wav().fmt(mono, 16, 11025).data(std::string(4000, '\0')).str();

ExpectedBank bankOfSilence() {
  return ExpectedBank().asset(1, std::string(1000, '\x80'), Pad::to4, {22050, 0, 4});
}

TEST(AssetRoad, ASoundAndASequenceTakeEveryStepIntoBankAndHeader) {
  const Events notes =
      events().note(0, 1, 60, 100).noteOff(96, 1, 60).tempo(0, 500000).endOfTrack();
  const std::string song = midi().ppqn(480).track(notes).trailing("behind the track");
  expectRun({.script = kScript,
             .files = {{"boom.wav", kBoom}, {"theme.mid", song}},
             .reading = kReading,
             .writing = "Writing Digital Audio Data: boom_wav\nWriting MIDI Data: theme_mid\n",
             .bank = bankOfSilence().asset(2, song, Pad::to4, {480, 100, 1, 0, 0, 500000}),
             .defines = {{"BOOM_WAV", 0}, {"THEME_MID", 1}}});
}

TEST(AssetRoad, ASequenceThatIsNotTakenLeavesTheRestOfTheBank) {
  using Files = std::map<std::string, std::string>;
  const std::string refusal = "Error: The file \"theme.mid\" is not a type 0 Standard MIDI File\n";
  const std::pair<Files, std::string> rows[] = {
      {{}, "File System Error: File \"theme.mid\" Not Found\n"},
      {{{"theme.mid", midi().format(1).track(events().tempo(0, 1))}}, refusal},
      {{{"theme.mid", midi().track(events().endOfTrack())}}, ""},
  };
  for (auto [files, problems] : rows) {
    files["boom.wav"] = kBoom;
    expectRun({.script = kScript,
               .files = files,
               .reading = kReading,
               .problems = problems,
               .writing = "Writing Digital Audio Data: boom_wav\n",
               .bank = bankOfSilence(),
               .defines = {{"BOOM_WAV", 0}}});
  }
}

TEST(AssetRoad, AMissingSoundEndsTheRunAtWhatItsBlockLeaves) {
  expectRun({.script = kScript,
             .reading = "Reading Wave File: boom.wav\n",
             .problems = "ERROR: File: boom.wav not found.\nScript File: a.txt\n"
                         "Error: Unidentified token: SampleRate at line: 4\n",
             .outcome = Outcome::parseFails});
}

}  // namespace
}  // namespace tavrel::test
