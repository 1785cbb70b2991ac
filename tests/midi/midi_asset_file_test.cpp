#include "midi/midi_asset_file.h"

#include <gmock/gmock.h>

#include "tests/support/midi_builder.h"
#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
TEST(MidiAssetFile, AndAnEventAreZeroBeforeTheyAreFilled) {
  const MidiAssetFile f("", 0);
  const MidiEvent ev;
  const std::uint32_t numbers[] = {
      f.accumulatedTime, f.bytesRead,   f.eventCount,    f.runningStatus,  f.headerValid,
      f.trackValid,      f.atEnd,       f.format,        f.numberOfTracks, f.ppqn,
      f.headerLength,    f.trackLength, f.imageSize,     f.assetSize,      f.trackHeaderOffset,
      f.trackDataOffset, ev.deltaTime,  ev.absoluteTime, ev.metaType,      ev.status,
      ev.sequence,       ev.statusHigh, ev.statusLow,    ev.channel,       ev.dataLength};
  EXPECT_THAT(numbers, testing::Each(0U));
}

TEST(MidiAssetFile, AcceptsOrRejectsByTheTwoHeadersAndTheFormat) {
  const TemporaryDirectory directory;
  const std::string name = directory.path("song.mid");
  const std::string notMidi = "Error: The file \"" + name + "\" is not a Standard MIDI File\n";
  const std::string premature = "Error: premature EOF.\n" + notMidi;
  const std::string small = midi().track(events().tempo(0, 500000));
  const std::string otherFormat =
      "Error: The file \"" + name + "\" is not a type 0 Standard MIDI File\n";
  const struct {
    const char* name;
    std::string content, problems;
  } rows[] = {
      {"length of the track ignored", midi().text("MTrk\xFF\xFF\xFF\xFF"), ""},
      {"format 7", midi(96, 7).track(""), otherFormat},
      {"cut in the identifier", small.substr(0, 3), notMidi},
      {"other", "mthd" + small.substr(4), "Error: Not a standard midi file.\n" + notMidi},
      {"cut in the division", small.substr(0, 13), premature},
      {"cut in the track's identifier", small.substr(0, 17), notMidi},
      {"other track", midi(96, 1).text("mtrk"),
       "Error: Not a standard midi file track header\n" + notMidi},
      {"format 0", small, ""},
      {"cut in the track's length", small.substr(0, 21), premature},
  };
  MidiAssetFile file(name.c_str(), 0);
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    directory.write("song.mid", row.content);
    const bool isAccepted = row.problems.empty();
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(file.load(), isAccepted); }).errors, row.problems);
    EXPECT_EQ(file.assetSize, isAccepted ? row.content.size() : 0);
    EXPECT_EQ(file.assetData, isAccepted ? file.image.get() : nullptr);
  }
  std::uint32_t tempo = 0;
  EXPECT_FALSE(file.firstTempo(tempo)) << "the track of the longer image starts after this one";
}

TEST(MidiAssetFile, HoldsTheHeadersOfAnyFormatAndWritesTheWholeImage) {
  const TemporaryDirectory directory;
  const std::string content = midi(0xE728, 7).track("abc").track("");
  MidiAssetFile file(directory.write("song.mid", content).c_str(), 1);
  EXPECT_TRUE(file.load());
  EXPECT_FALSE(file.loadType0()) << "the format is 7";
  EXPECT_EQ(printedBy([&] { file.printHeaderInfo(); }).output,
            "\nFormat:\t\t\t\t7\nNumber of Tracks:\t2\nPpqn:\t\t\t\t59176\n\n\n");
  const std::uint32_t fields[] = {file.headerValid, file.headerLength,      file.trackValid,
                                  file.trackLength, file.trackHeaderOffset, file.trackDataOffset};
  EXPECT_THAT(fields, testing::ElementsAre(1, 6, 1, 3, 14, 22));
  EXPECT_TRUE(file.writeImageAs(directory.path("a.mid").c_str()));
  EXPECT_EQ(directory.read("a.mid"), content);
  DiskFile out(modeWrite, directory.path("b.mid").c_str(), "");
  EXPECT_FALSE(file.writeImageTo(out)) << "not open";
  EXPECT_EQ(out.error, errorNone);
  EXPECT_TRUE(out.open() && file.writeImageTo(out) && out.close());
  EXPECT_EQ(directory.read("b.mid"), content);
  const std::string folder = directory.path();
  EXPECT_NE(printedBy([&] { EXPECT_FALSE(file.writeImageAs(folder.c_str())); }).errors, "");
  if (std::filesystem::exists("/dev/full")) {
    EXPECT_NE(printedBy([&] { EXPECT_FALSE(file.writeImageAs("/dev/full")); }).errors, "");
  }
}

}  // namespace tavrel::test
