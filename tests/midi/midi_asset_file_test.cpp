#include "midi/midi_asset_file.h"

#include <gtest/gtest.h>

#include "tests/support/loaded_midi.h"

namespace tavrel::test {
namespace {

/// The smallest file with a tempo: 14 bytes of header, 8 of track header, 7 and 4 of events.
std::string smallFile() { return midi().track(events().tempo(0, 500000).endOfTrack()); }

TEST(MidiAssetFileTest, PublishesTheWholeImageAndStandsOnTheFirstEvent) {
  LoadedMidi loaded(smallFile(), 0);
  const MidiAssetFile& file = loaded.file;
  ASSERT_EQ(file.assetSize, 33U) << loaded.errors;
  EXPECT_EQ(std::string(file.assetData, file.assetData + file.assetSize), smallFile());
  EXPECT_EQ(file.headerLength, 6U);
  EXPECT_EQ(file.format, 0);
  EXPECT_EQ(file.numberOfTracks, 1);
  EXPECT_EQ(file.ppqn, 96);
  EXPECT_EQ(file.trackLength, 11U);
  EXPECT_EQ(file.trackHeaderOffset, 14U);
  EXPECT_EQ(file.bytesRead, 22U);
  EXPECT_EQ(file.cursor, file.assetData + 22);
}

TEST(MidiAssetFileTest, JudgesTheTwoHeadersAndTheFormatOnlyAndSaysWhyInOrder) {
  const char* const notMidi = "\" is not a Standard MIDI File\n";
  const char* const notType0 = "\" is not a type 0 Standard MIDI File\n";
  const char* const premature = "Error: premature EOF.\n";
  const char* const noHeader = "Error: Not a standard midi file.\n";
  const char* const noTrack = "Error: Not a standard midi file track header\n";
  const std::string small = smallFile();
  const Events none;
  const struct {
    std::uint16_t anyFormat;
    std::string content;
    const char* firstLine;
    const char* reason;  // null: accepted
  } cases[] = {
      {0, midi().track(none), "", nullptr},
      {0, midi().track(none, 0xFFFFFFFF), "", nullptr},
      {0, midi().track(none).trailing("tail"), "", nullptr},
      {0, midi().claimTracks(5).ppqn(0xE728).track(none), "", nullptr},
      {1, midi().format(1).track(none), "", nullptr},
      {0x100, midi().format(7).track(none), "", nullptr},
      {0, small.substr(0, 3), "", notMidi},
      {0, "mthd" + small.substr(4), noHeader, notMidi},
      {0, small.substr(0, 4), premature, notMidi},
      {0, small.substr(0, 13), premature, notMidi},
      {0, small.substr(0, 17), "", notMidi},
      {0, midi().chunk("XFIH", 0, "").track(none), noTrack, notMidi},
      {0, midi().headerTail("12").track(none), noTrack, notMidi},
      {0, small.substr(0, 21), premature, notMidi},
      {0, midi().format(1).track(none), "", notType0},
      {0, midi().format(7).track(none), "", notType0},
      {0, midi().format(1).chunk("mtrk", 0, ""), noTrack, notMidi},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.content));
    const LoadedMidi loaded(c.content, c.anyFormat);
    const bool accepted = c.reason == nullptr;
    const std::string name = loaded.directory.path("song.mid");
    EXPECT_EQ(loaded.accepted, accepted);
    EXPECT_EQ(loaded.errors,
              accepted ? "" : c.firstLine + ("Error: The file \"" + name) + c.reason);
    EXPECT_EQ(loaded.file.assetSize, accepted ? c.content.size() : 0);
    EXPECT_EQ(loaded.file.assetData, accepted ? loaded.file.image.get() : nullptr);
  }
}

TEST(MidiAssetFileTest, AnEmptyFileFailsInSilenceAndALostOneInTheDisksWords) {
  LoadedMidi loaded("");
  EXPECT_FALSE(loaded.accepted);
  EXPECT_EQ(loaded.errors, "");
  const std::string lost = loaded.directory.path(std::string(150, 'n'));
  MidiAssetFile file(lost.c_str(), 0);
  testing::internal::CaptureStderr();
  EXPECT_FALSE(file.load());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "File System Error: File \"" + lost + "\" Not Found\n");
}

TEST(MidiAssetFileTest, LoadingAgainLeavesNothingOfTheOldImage) {
  LoadedMidi loaded(smallFile());
  loaded.directory.write("song.mid", "MThd");
  testing::internal::CaptureStderr();
  EXPECT_FALSE(loaded.file.load());
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(loaded.file.assetData, nullptr);
  std::uint32_t tempo = 0;
  EXPECT_FALSE(loaded.file.firstTempo(tempo)) << "the old track lies outside the image";
}

TEST(MidiAssetFileTest, WritesTheImageUnchanged) {
  LoadedMidi loaded(smallFile());
  EXPECT_TRUE(loaded.file.writeImageAs(loaded.directory.path("copy.mid").c_str()));
  EXPECT_EQ(loaded.directory.read("copy.mid"), smallFile());
  DiskFile out(modeWrite, loaded.directory.path("second.mid").c_str(), "");
  EXPECT_FALSE(loaded.file.writeImageTo(out)) << "not open";
  ASSERT_TRUE(out.open());
  EXPECT_TRUE(loaded.file.writeImageTo(out));
  ASSERT_TRUE(out.close());
  EXPECT_EQ(loaded.directory.read("second.mid"), smallFile());
}

TEST(MidiFileTest, LoadType0RefusesOtherFormatsInSilence) {
  for (const std::uint32_t format : {0U, 1U}) {
    LoadedMidi loaded(midi().format(format).track(events().endOfTrack()).str());
    testing::internal::CaptureStderr();
    EXPECT_EQ(loaded.file.loadType0(), format == 0);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  }
}

}  // namespace
}  // namespace tavrel::test
