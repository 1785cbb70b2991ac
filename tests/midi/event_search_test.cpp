#include <gtest/gtest.h>

#include <string>

#include "tests/support/loaded_midi.h"

namespace tavrel::test {
namespace {

const std::string kReaderFailed = "getNextEvent()==FAIL in findEvent()\n";

TEST(EventSearchTest, FindsByStatusFirstByteAndCursor) {
  Events track = events().note(1, 1, 60, 100).message(2, 0xB0, 7, 100).message(3, 0xB0, 10, 64);
  track.note(4, 1, 60, 0).message(5, 0xB0, 7, 90).meta(6, 1, "Hi").endOfTrack(7);
  const struct {
    std::uint32_t status;
    int firstByte;  // -1: any
    bool fromCursor, found;
    std::uint32_t absoluteTime;
  } cases[] = {
      {0x90, -1, true, true, 1},    {0x90, -1, true, true, 10},   {0x90, -1, true, false, 28},
      {0xB0, -1, false, true, 3},   {0xB0, 10, false, true, 6},   {0xB0, 7, true, true, 15},
      {0xB0, 9, false, false, 28},  {0x91, -1, false, false, 28}, {0xFF, -1, false, true, 21},
      {0xFF, 'H', false, true, 21}, {0xFF, 0, false, false, 28},
  };
  LoadedMidi loaded(track);
  MidiEvent* ev = newEvent();
  ASSERT_NE(ev, nullptr);
  testing::internal::CaptureStderr();
  for (const auto& c : cases) {
    const auto byte = static_cast<std::uint8_t>(c.firstByte);
    EXPECT_EQ(c.firstByte < 0 ? loaded.file.findEvent(*ev, c.status, c.fromCursor)
                              : loaded.file.findEvent(*ev, c.status, byte, c.fromCursor),
              c.found)
        << c.status << " " << c.firstByte;
    EXPECT_EQ(ev->absoluteTime, c.absoluteTime) << c.status << " " << c.firstByte;
  }
  EXPECT_TRUE(isMetaType(*ev, 47)) << "a failed search leaves the end of the track";
  EXPECT_TRUE(loaded.file.findEvent(*ev, 0x90)) << "from the start of the track";
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  deleteEvent(ev);
  deleteEvent(nullptr);
}

TEST(EventSearchTest, ChannelHasEventsOfTheSelectedKinds) {
  const Events tracks[] = {
      events().note(0, 16, 60, 9),      events().noteOff(0, 16, 60),
      events().message(0, 0xAF, 60, 9), events().message(0, 0xBF, 7, 9),
      events().message(0, 0xCF, 1),     events().message(0, 0xDF, 1),
      events().message(0, 0xEF, 0, 64),
  };
  std::uint8_t bit = 1;
  for (const Events& track : tracks) {
    LoadedMidi loaded(Events(track).endOfTrack());
    EXPECT_TRUE(loaded.file.channelHasEvents(15, bit)) << int{bit};
    EXPECT_FALSE(loaded.file.channelHasEvents(15, static_cast<std::uint8_t>(~bit))) << int{bit};
    EXPECT_FALSE(loaded.file.channelHasEvents(14, 0xFF)) << int{bit};
    bit = static_cast<std::uint8_t>(bit << 1);
  }
}

TEST(EventSearchTest, EachSearchSaysThatTheTrackHasNoEnd) {
  LoadedMidi loaded(events().noteOff(0, 1, 60));
  testing::internal::CaptureStderr();
  EXPECT_FALSE(loaded.file.channelHasEvents(1, 0));
  std::string sevenLines;
  for (int search = 0; search < 7; ++search) {
    sevenLines += kReaderFailed;
  }
  EXPECT_EQ(testing::internal::GetCapturedStderr(), sevenLines);
  loaded.file.rewind();
  std::uint16_t voices = 9;
  testing::internal::CaptureStderr();
  EXPECT_FALSE(loaded.file.countPolyphony(voices));
  EXPECT_EQ(testing::internal::GetCapturedStderr(), kReaderFailed);
  EXPECT_EQ(voices, 9);
}

/// The lines of the peaks from 1 to `last`, and of `freed` voices.
std::string polyphonyLines(int last, int freed) {
  std::string lines;
  for (int peak = 1; peak <= last; ++peak) {
    lines += "Poly update: " + std::to_string(peak) + "\n";
  }
  for (int voice = 0; voice < freed; ++voice) {
    lines += "Voice Channel Freed\n";
  }
  return lines;
}

TEST(EventSearchTest, CountsTheNotesThatSoundAtOnce) {
  Events chords = events().note(0, 1, 60, 9).note(0, 1, 64, 9).note(0, 1, 67, 9);
  chords.noteOff(9, 1, 67).noteOff(0, 1, 60).note(0, 1, 64, 0);
  chords.note(0, 2, 60, 9).note(0, 2, 64, 9).noteOff(9, 2, 60).noteOff(0, 2, 64);
  Events strangers = events().noteOff(0, 1, 60).note(0, 1, 60, 9);
  strangers.noteOff(0, 1, 61).noteOff(0, 2, 60);
  Events manyNotes;
  for (int i = 0; i < 40000; ++i) {
    manyNotes.note(0, 1, 60, 100);
  }
  const struct {
    Events track;
    std::string lines;
    std::uint16_t voices;
  } cases[] = {
      {events(), "", 0},
      {chords, polyphonyLines(3, 5), 3},
      {events().note(0, 1, 60, 9).note(0, 1, 60, 9), polyphonyLines(2, 0), 2},
      {strangers, polyphonyLines(1, 0), 1},
      {manyNotes, polyphonyLines(32767, 0), 32767},
  };
  for (const auto& c : cases) {
    LoadedMidi loaded(Events(c.track).endOfTrack());
    std::uint16_t voices = 9;
    testing::internal::CaptureStdout();
    EXPECT_TRUE(loaded.file.countPolyphony(voices));
    EXPECT_EQ(testing::internal::GetCapturedStdout(), c.lines);
    EXPECT_EQ(voices, c.voices);
  }
}

}  // namespace
}  // namespace tavrel::test
