#include "midi/midi_asset_file.h"

#include <gtest/gtest.h>

#include "tests/support/midi_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

TEST(MidiAssetFile, IsZeroBeforeItIsLoaded) {
  const MidiAssetFile file("", 0);
  EXPECT_EQ(file.accumulatedTime | file.bytesRead | file.eventCount | file.runningStatus, 0U);
  EXPECT_EQ(file.headerValid | file.trackValid | file.atEnd, 0);
  EXPECT_EQ(file.format | file.numberOfTracks | file.ppqn, 0);
  EXPECT_EQ(file.headerLength | file.trackLength | file.imageSize | file.assetSize, 0U);
  EXPECT_EQ(file.trackHeaderOffset | file.trackDataOffset, 0U);
  const MidiEvent ev;
  EXPECT_EQ(ev.deltaTime | ev.absoluteTime | ev.metaType | ev.status | ev.sequence, 0U);
  EXPECT_EQ(ev.statusHigh | ev.statusLow | ev.channel | ev.dataLength, 0U);
}

TEST(MidiAssetFile, AcceptsOrRejectsByTheTwoHeadersAndTheFormat) {
  const TemporaryDirectory directory;
  const std::string name = directory.path("song.mid");
  const std::string notMidi = "Error: The file \"" + name + "\" is not a Standard MIDI File\n";
  const std::string premature = "Error: premature EOF.\n" + notMidi;
  const std::string small = midi().track(events().tempo(0, 500000));
  const struct {
    const char* name;
    std::uint16_t anyFormat;
    std::string content, outcome;
  } cases[] = {
      {"length of the track ignored", 0, midi().text("MTrk\xFF\xFF\xFF\xFF"), "accepted"},
      {"any format", 0x100, midi(96, 7).track(""), "accepted"},
      {"format 7", 0, midi(96, 7).track(""),
       "Error: The file \"" + name + "\" is not a type 0 Standard MIDI File\n"},
      {"cut in the identifier", 0, small.substr(0, 3), notMidi},
      {"other identifier", 0, "mthd" + small.substr(4),
       "Error: Not a standard midi file.\n" + notMidi},
      {"cut in the length", 0, small.substr(0, 7), premature},
      {"cut in the division", 0, small.substr(0, 13), premature},
      {"cut in the track's identifier", 0, small.substr(0, 17), notMidi},
      {"other track identifier", 0, midi(96, 1).text("mtrk"),
       "Error: Not a standard midi file track header\n" + notMidi},
      {"format 0", 0, small, "accepted"},
      {"empty", 0, "", ""},
      {"cut in the track's length", 0, small.substr(0, 21), premature},
  };
  MidiAssetFile file(name.c_str(), 0);
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    directory.write("song.mid", row.content);
    file.anyFormat = row.anyFormat;
    testing::internal::CaptureStderr();
    const bool accepted = file.load();
    EXPECT_EQ(testing::internal::GetCapturedStderr() + (accepted ? "accepted" : ""), row.outcome);
    EXPECT_EQ(file.assetSize, accepted ? row.content.size() : 0);
    EXPECT_EQ(file.assetData, accepted ? file.image.get() : nullptr);
  }
  std::uint32_t tempo = 0;
  EXPECT_FALSE(file.firstTempo(tempo)) << "the track of the longer image starts after this one";
}

TEST(MidiAssetFile, HoldsTheHeadersAndWritesTheWholeImage) {
  const TemporaryDirectory directory;
  const std::string content = midi(0xE728, 7).track("abc").track("");
  MidiAssetFile file(directory.write("song.mid", content).c_str(), 1);
  EXPECT_FALSE(file.loadType0()) << "the format is 7";
  testing::internal::CaptureStdout();
  file.printHeaderInfo();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "\nFormat:\t\t\t\t7\nNumber of Tracks:\t2\nPpqn:\t\t\t\t59176\n\n\n");
  EXPECT_EQ(file.headerValid, 1);
  EXPECT_EQ(file.headerLength, 6U);
  EXPECT_EQ(file.trackValid, 1);
  EXPECT_EQ(file.trackLength, 3U);
  EXPECT_EQ(file.trackHeaderOffset, 14U);
  EXPECT_EQ(file.trackDataOffset, 22U);
  EXPECT_TRUE(file.writeImageAs(directory.path("a.mid").c_str()));
  EXPECT_EQ(directory.read("a.mid"), content);
  DiskFile out(modeWrite, directory.path("b.mid").c_str(), "");
  EXPECT_FALSE(file.writeImageTo(out)) << "not open";
  EXPECT_EQ(out.error, errorNone);
  EXPECT_TRUE(out.open() && file.writeImageTo(out) && out.close());
  EXPECT_EQ(directory.read("b.mid"), content);
  testing::internal::CaptureStderr();
  EXPECT_FALSE(file.writeImageAs(directory.path().c_str())) << "a directory";
  EXPECT_NE(testing::internal::GetCapturedStderr(), "");
}

}  // namespace
}  // namespace tavrel::test
