#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/support/loaded_midi.h"

namespace tavrel::test {
namespace {

/// Number, times, status, meta type, channel and payload of an event, and the predicates that are
/// true of it.
std::string wordsOf(const MidiEvent& ev) {
  EXPECT_EQ(ev.status, ev.statusHigh * 16U + ev.statusLow);
  std::ostringstream words;
  words << ev.sequence << ": +" << ev.deltaTime << "=" << ev.absoluteTime << " " << std::hex
        << ev.status << "/" << ev.metaType << std::dec << " ch " << int{ev.channel} << " [";
  for (std::uint32_t i = 0; i < ev.dataLength; ++i) {
    words << " " << int{ev.data[i]};
  }
  words << " ]" << (isNoteOn(ev) ? " on" : "") << (isNoteOff(ev) ? " off" : "")
        << (isNoteNumber(ev, 60) ? " n60" : "") << (isPolyPressure(ev) ? " poly" : "")
        << (isController(ev) ? " cc" : "") << (isControllerNumber(ev, 60) ? " cc60" : "")
        << (isProgramChange(ev) ? " prog" : "") << (isProgramNumber(ev, 60) ? " prog60" : "")
        << (isChannelPressure(ev) ? " press" : "") << (isPitchWheel(ev) ? " wheel" : "")
        << (isSysEx(ev) ? " sysex" : "") << (isMeta(ev) ? " meta" : "")
        << (isMetaType(ev, 1) ? " text" : "") << (matchesMeta(ev, 255, 47) ? " end" : "")
        << (hasStatus(ev, 0x92) ? " 92" : "");
  return words.str();
}

/// All events up to the end of the image.
std::vector<std::string> allEvents(MidiFile& file) {
  std::vector<std::string> all;
  for (HeldEvent ev; file.getNextEvent(ev); clearEvent(ev)) {
    EXPECT_TRUE(ev.data != nullptr || ev.status == 0) << "an empty payload is a block too";
    all.push_back(wordsOf(ev));
  }
  return all;
}

/// Events of every kind, and how they read in their order.
const struct {
  Events event;
  const char* words;
} kEveryKind[] = {
    {events().note(0, 3, 60, 100), "1: +0=0 92/ff ch 3 [ 60 100 ] on n60 92"},
    {events().running(10, 60, 0), "2: +10=10 92/ff ch 3 [ 60 0 ] off n60 92"},
    {events().noteOff(0x80, 16, 60), "3: +128=138 8f/ff ch 16 [ 60 64 ] off"},
    {events().message(0x3FFF, 0xA0, 60, 5), "4: +16383=16521 a0/ff ch 1 [ 60 5 ] poly"},
    {events().message(0x4000, 0xB1, 60, 255), "5: +16384=32905 b1/ff ch 2 [ 60 255 ] cc cc60"},
    {events().running(0, 61, 60), "6: +0=32905 b1/ff ch 2 [ 61 60 ] cc"},
    {events().message(0, 0xE0, 60, 64), "7: +0=32905 e0/ff ch 1 [ 60 64 ] wheel"},
    {events().message(0, 0xC4, 60), "8: +0=32905 c4/ff ch 5 [ 60 ] prog prog60"},
    {events().raw(0, "\x3D"), "9: +0=32905 c4/ff ch 5 [ 61 ] prog"},
    {events().message(0, 0xD5, 60), "10: +0=32905 d5/ff ch 6 [ 60 ] press"},
    {events().system(0, 0xF0, "\x3C\xF7"), "11: +0=32905 f0/0 ch 0 [ 60 247 ] sysex"},
    {events().raw(0, "\x01\x41"), "12: +0=32905 f0/0 ch 0 [ 65 ] sysex"},
    {events().system(0, 0xF7, "A"), "13: +0=32905 f7/0 ch 0 [ 65 ]"},
    {events().system(0, 0xF3, ""), "14: +0=32905 f3/0 ch 0 [ ]"},
    {events().endOfTrack(), "15: +0=32905 ff/2f ch 0 [ ] meta end"},
    {events().raw(7, "\x01\x02Hi"), "16: +7=32912 ff/1 ch 0 [ 72 105 ] meta text"},
};

TEST(EventReaderTest, ReadsEveryKindOfEventTwiceAlike) {
  Events track;
  std::vector<std::string> expected;
  for (const auto& [event, words] : kEveryKind) {
    track.append(event);
    expected.emplace_back(words);
  }
  LoadedMidi loaded(track);
  EXPECT_EQ(allEvents(loaded.file), expected);
  EXPECT_EQ(loaded.file.atEnd, 1);
  loaded.file.rewind();
  EXPECT_EQ(loaded.file.bytesRead, loaded.file.imageSize) << "a rewind doesn't count back";
  EXPECT_EQ(allEvents(loaded.file), expected);
}

TEST(EventReaderTest, DeltaTimesAndTheirSumKeep32Bits) {
  // The first delta time ends with the byte that `raw` writes for 0x7F: 35 bits, all set.
  const Events rest = events().raw(0x7F, "\xC0\x01").raw(3, "\x02");
  LoadedMidi loaded(midi().chunk("MTrk", 0, Bytes().fill(4, 0xFF).text(rest.str())).str());
  EXPECT_THAT(allEvents(loaded.file),
              testing::ElementsAre("1: +4294967295=4294967295 c0/ff ch 1 [ 1 ] prog",
                                   "2: +3=2 c0/ff ch 1 [ 2 ] prog"));
}

TEST(EventReaderTest, AFirstEventWithoutStatusHasNoPayload) {
  LoadedMidi loaded(events().running(7, 60, 100));
  EXPECT_THAT(allEvents(loaded.file),
              testing::ElementsAre("1: +7=7 0/0 ch 0 [ ]", "2: +60=67 0/0 ch 0 [ ]"));
  EXPECT_EQ(loaded.file.accumulatedTime, 7U + 60U + 100U) << "the image ends behind a delta time";
}

TEST(EventReaderTest, TheEndOfTheImageEndsAnEventAnywhere) {
  const struct {
    std::string track;
    std::uint32_t eventCount;
    std::string delivered;  // the payload bytes ahead of the end
    std::uint8_t atEnd;
  } cases[] = {
      {"\x81", 0, "", 1},
      {"\x01", 1, "", 0},
      {"\x01\xFF", 1, "", 1},
      {"\x01\xFF\x01\x81", 1, "", 1},
      {"\x01\x90\x3C", 1, "\x3C", 1},
      {"\x01\xF0\xFF\xFF\xFF\x7Fxyz", 1, "xyz", 1},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.track));
    LoadedMidi loaded(midi().chunk("MTrk", 4, c.track).str());
    HeldEvent ev;
    EXPECT_FALSE(loaded.file.getNextEvent(ev));
    EXPECT_EQ(loaded.file.eventCount, c.eventCount);
    ASSERT_EQ(ev.data != nullptr, !c.delivered.empty());
    EXPECT_EQ(std::string(ev.data, ev.data + c.delivered.size()), c.delivered);
    EXPECT_EQ(loaded.file.atEnd, c.atEnd);
    EXPECT_EQ(loaded.file.bytesRead, loaded.file.imageSize);
  }
}

TEST(EventReaderTest, EveryTruncationIsSafeForEveryOperation) {
  Events track;
  for (const auto& kind : kEveryKind) {
    track.append(kind.event);
  }
  const std::string whole = midi().track(track);
  for (std::size_t size = 0; size < whole.size(); ++size) {
    LoadedMidi loaded(whole.substr(0, size));
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    for (HeldEvent ev; loaded.file.getNextEvent(ev); clearEvent(ev)) {
      loaded.file.printEvent(ev);
    }
    std::uint32_t tempo = 0;
    std::uint16_t voices = 0;
    EXPECT_FALSE(loaded.file.firstTempo(tempo));
    EXPECT_FALSE(loaded.file.channelHasEvents(0, 0));
    loaded.file.rewind();
    loaded.file.countPolyphony(voices);
    testing::internal::GetCapturedStdout();
    testing::internal::GetCapturedStderr();
  }
}

TEST(EventReaderTest, AMillionNotesAreOneEventEach) {
  Events track = events().note(1, 1, 60, 100);
  for (int i = 1; i < 1000000; ++i) {
    track.running(1, 60, 100);
  }
  LoadedMidi loaded(track.tempo(0, 1));
  std::uint32_t tempo = 0;
  EXPECT_TRUE(loaded.file.firstTempo(tempo));
  EXPECT_EQ(loaded.file.eventCount, 1000001U);
  EXPECT_EQ(loaded.file.accumulatedTime, 1000000U);
}

}  // namespace
}  // namespace tavrel::test
