#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <utility>

#include "midi/controller_names.h"
#include "tests/support/loaded_midi.h"

namespace tavrel::test {
namespace {

using std::string_view_literals::operator""sv;

/// What `printEvent` prints of all events.
std::string dump(MidiFile& file) {
  testing::internal::CaptureStdout();
  for (HeldEvent ev; file.getNextEvent(ev); clearEvent(ev)) {
    file.printEvent(ev);
  }
  return testing::internal::GetCapturedStdout();
}

/// The times, as hexadecimal digits, of the events that a mask and a channel select.
std::string selectedTimes(const Events& track, std::uint32_t mask, std::uint8_t channel) {
  LoadedMidi loaded(track);
  std::string times;
  for (HeldEvent ev; loaded.file.getNextEvent(ev); clearEvent(ev)) {
    testing::internal::CaptureStdout();
    loaded.file.printEventOnChannel(ev, mask, channel);
    if (!testing::internal::GetCapturedStdout().empty()) {
      times += "0123456789ABC"[ev.absoluteTime];
    }
  }
  return times;
}

TEST(TextDumpTest, PrintsEveryKindOfEvent) {
  const struct {
    Events event;
    std::string_view line;
  } rows[] = {
      {events().note(0, 1, 60, 100), "1  Note On  - C3               Note #: 60  Velocity: 100\n"},
      {events().note(0, 16, 61, 0), "16 Note Off - C#3              Note #: 61  Velocity: 0  \n"},
      {events().noteOff(0, 1, 127), "1  Note Off - G8               Note #: 127 Velocity: 64 \n"},
      {events().message(0, 0xB0, 91, 7), "1  CC - External Effect Depth  CC#: 91     Value: 7  \n"},
      {events().message(0, 0xB0, 128, 1),
       "1  CC - Undefined              CC#: 128    Value: 1  \n"},
      {events().message(0, 0xC1, 5), "2  Program Change              Number: 5  \n"},
      {events().message(0, 0xE0, 1, 64), "1  Pitch Wheel                 msb: 64  lsb 1  \n"},
      {events().message(0, 0xD0, 7), "1  Channel Pressure            Pressure: 7  \n"},
      {events().message(0, 0xA0, 60, 8),
       "1  Poly Pressure               Note #: 60  Pressure: 8  \n"},
      {events().system(0, 0xF0, "\x7E\xF7"), "SysEx - 0x7e, 0xf7, \n"},
      {events().meta(0, 0x00, "\x01\x02"), "Meta  -  SequenceNumber: 1\n"},
      {events().meta(0, 0x01, "a\0b"sv), "Meta  -  Text - a\0b\n"sv},
      {events().meta(0, 0x02, "c"), "Meta  -  CopyrightNotice - c\n"},
      {events().meta(0, 0x03, "t"), "Meta  -  TrackName - t\n"},
      {events().meta(0, 0x04, "i"), "Meta  -  InstrumentName - i\n"},
      {events().meta(0, 0x05, "l"), "Meta  -  LyricText - l\n"},
      {events().meta(0, 0x06, "m"), "Meta  -  Marker - m\n"},
      {events().meta(0, 0x07, ""), "Meta  -  CuePoint - \n"},
      {events().meta(0, 0x20, "\x01"), "Meta  -  ChannelPrefix\n"},
      {events().endOfTrack(), "Meta  -  EndOfTrack\n"},
      {events().tempo(0, 500000), "Meta  -  Tempo - Bpm: 119.999994\n"},
      {events().tempo(0, 999), "Meta  -  Tempo - \n"},
      {events().meta(0, 0x54, "\1\2\3\4\5"), "Meta  -  SmpteOffset - 1:2:3:4.5\n"},
      {events().meta(0, 0x58, "\x06\x03\x18\x08"),
       "Meta  -  TimeSignature - 6/8 Time, Midi ppqn: 24 32'nds pqn: 8\n"},
      {events().meta(0, 0x58, "\x01\x0F\x01\x01"),
       "Meta  -  TimeSignature - 1/-32768 Time, Midi ppqn: 1 32'nds pqn: 1\n"},
      {events().meta(0, 0x58, "\x01\xFF"),
       "Meta  -  TimeSignature - 1/0 Time, Midi ppqn: 0 32'nds pqn: 0\n"},
      {events().meta(0, 0x59, "\xFD\x01"), "Meta  -  KeySignature - -3 Flat(s) Minor\n"},
      {events().meta(0, 0x59, "\x02"), "Meta  -  KeySignature - 2 Sharps(s) Major\n"},
      {events().meta(0, 0x59, ""), "Meta  -  KeySignature - Key of C Major\n"},
      {events().meta(0, 0x7F, "\x0A"), "Meta  -  SequencerSpecific - 0x0a, \n"},
      {events().meta(0, 0x09, "open"), "Meta  - "},
      {events().system(0, 0xF3, ""), ""},
  };
  Events track;
  std::string expected = "\nFormat:\t\t\t\t0\nNumber of Tracks:\t1\nPpqn:\t\t\t\t96\n\n\n";
  for (const auto& row : rows) {
    track.append(row.event);
    expected.append("1:1:  0\t\t\t").append(row.line);
  }
  LoadedMidi loaded(track);
  testing::internal::CaptureStdout();
  loaded.file.printHeaderInfo();
  std::string printed = testing::internal::GetCapturedStdout();
  testing::internal::CaptureStderr();
  printed += dump(loaded.file);
  EXPECT_EQ(printed, expected);
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "TROUBLE!!!!\n") << "for the last event";
}

TEST(TextDumpTest, FilterBitsSelectTheirKindsOnly) {
  Events track = events().note(0, 2, 60, 1).note(1, 1, 60, 0).message(1, 0xA0, 60, 1);
  track.message(1, 0xB0, 7, 1).message(1, 0xB0, 10, 1).message(1, 0xB0, 32, 1);
  track.message(1, 0xB0, 1, 1).message(1, 0xC0, 1).message(1, 0xD0, 1).message(1, 0xE0, 1, 1);
  track.system(1, 0xF0, "").system(1, 0xF3, "").endOfTrack(1);
  const struct {
    std::uint32_t mask;
    std::uint8_t channel;
    const char* times;
  } cases[] = {
      {0x001, 0, "0"},  {0x002, 0, "1"},
      {0x004, 0, "2"},  {0x008, 0, "3456"},
      {0x010, 0, "7"},  {0x020, 0, "8"},
      {0x040, 0, "9"},  {0x080, 0, "A"},
      {0x100, 0, "C"},  {0x200, 0, "5"},
      {0x400, 0, "3"},  {0x800, 0, "4"},
      {0x208, 0, "5"},  {0x608, 0, "35"},
      {0xA08, 0, "45"}, {0xC08, 0, "3456"},
      {0x103, 2, "0"},  {0xFFFFFFFF, 0, "012345789AC"},
      {0x000, 0, ""},   {0xFFFFFFFF, 1, "12345789"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(selectedTimes(track, c.mask, c.channel), c.times) << std::hex << c.mask;
  }
}

TEST(TextDumpTest, TimesAreBarsOfFourQuarters) {
  const struct {
    std::uint32_t ppqn, absoluteTime;
    const char* text;
    std::uint32_t bar;
  } cases[] = {
      {96, 100, "1:2:  4", 1},
      {1, 0xFFFFFFFF, "1073741824:4:  0", 1073741824},
      {0xFFFF, 0xFFFFFFFF, "16385:2:  0", 16385},
      {0, 0xFFFFFFFF, "1:1:4294967295", 1},
  };
  for (const auto& c : cases) {
    LoadedMidi loaded(midi().ppqn(c.ppqn).track(events()).str());
    MidiEvent ev;
    ev.absoluteTime = c.absoluteTime;
    EXPECT_STREQ(loaded.file.timeText(ev), c.text);
    EXPECT_EQ(loaded.file.barNumber(ev), c.bar);
  }
  LoadedMidi loaded(midi().ppqn(1).track(events().endOfTrack(35).endOfTrack(1)).str());
  EXPECT_EQ(dump(loaded.file),
            "9:4:  0\t\t\tMeta  -  EndOfTrack\n10:1:  0\t\tMeta  -  EndOfTrack\n");
}

TEST(TextDumpTest, NamesOfNotesAndControllers) {
  MidiFile file;
  const struct {
    std::uint8_t note, octaveBase;
    const char* name;
  } notes[] = {{0, 0, "C-2"}, {12, 0, "C-1"}, {23, 0, "B0"}, {24, 0, "C0"},   {35, 0, "B0"},
               {60, 0, "C3"}, {60, 1, "C4"},  {60, 2, "C3"}, {255, 0, "D#19"}};
  for (const auto& c : notes) {
    EXPECT_STREQ(file.noteName(c.note, c.octaveBase), c.name);
  }
  const std::pair<std::size_t, const char*> controllers[] = {
      {0, "Bank Select MSB"}, {31, "Undefined"},      {63, "Undefined LSB"},
      {64, "Sustain"},        {97, "Data Decrement"}, {127, "Poly On/Mono Off"}};
  for (const auto& [number, name] : controllers) {
    EXPECT_STREQ(controllerNames[number].data(), name);
  }
}

}  // namespace
}  // namespace tavrel::test
