#include "midi/midi_asset_file.h"

#include <gtest/gtest.h>

#include "tests/support/midi_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

TEST(MidiAssetFile, AcceptsOrRejectsByTheTwoHeadersAndTheFormat) {
  const TemporaryDirectory directory;
  const std::string name = directory.path("song.mid");
  const std::string notMidi = "Error: The file \"" + name + "\" is not a Standard MIDI File\n";
  const std::string wrongType =
      "Error: The file \"" + name + "\" is not a type 0 Standard MIDI File\n";
  const std::string premature = "Error: premature EOF.\n" + notMidi;
  const std::string noHeader = "Error: Not a standard midi file.\n" + notMidi;
  const std::string noTrack = "Error: Not a standard midi file track header\n" + notMidi;
  const std::string small = midi().track("abc");
  const struct {
    const char* name;
    std::uint16_t anyFormat;
    std::string content, outcome;
  } cases[] = {
      {"length of the track ignored", 0, midi().text("MTrk\xFF\xFF\xFF\xFF"), "accepted"},
      {"format 7", 0, midi(96, 7).track(""), wrongType},
      {"any format", 0x100, midi(96, 7).track(""), "accepted"},
      {"empty", 0, "", ""},
      {"cut in the identifier", 0, small.substr(0, 3), notMidi},
      {"other identifier", 0, "mthd" + small.substr(4), noHeader},
      {"cut in the length", 0, small.substr(0, 7), premature},
      {"cut in the division", 0, small.substr(0, 13), premature},
      {"cut in the track's identifier", 0, small.substr(0, 17), notMidi},
      {"other track identifier", 0, midi(96, 1).text("mtrk"), noTrack},
      {"cut in the track's length", 0, small.substr(0, 21), premature},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    MidiAssetFile file(directory.write("song.mid", row.content).c_str(), row.anyFormat);
    testing::internal::CaptureStderr();
    const bool accepted = file.load();
    EXPECT_EQ(testing::internal::GetCapturedStderr() + (accepted ? "accepted" : ""), row.outcome);
    EXPECT_EQ(file.assetSize, accepted ? row.content.size() : 0);
    EXPECT_EQ(file.assetData, accepted ? file.image.get() : nullptr);
  }
}

TEST(MidiAssetFile, FailedLoadPublishesNothingAndKeepsTheImage) {
  const TemporaryDirectory directory;
  const std::string content = midi().track(events().tempo(0, 500000));
  MidiAssetFile file(directory.write("song.mid", content).c_str(), 0);
  std::uint32_t tempo = 0;
  EXPECT_TRUE(file.load());
  directory.write("song.mid", "");
  EXPECT_FALSE(file.load());
  EXPECT_EQ(file.assetSize, 0U);
  EXPECT_EQ(file.assetData, nullptr);
  EXPECT_TRUE(file.firstTempo(tempo));
  directory.write("song.mid", content.substr(0, 21));
  EXPECT_FALSE(file.load());
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
