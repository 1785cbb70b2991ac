#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "midi/controller_names.h"
#include "midi/midi_asset_file.h"
#include "tests/support/midi_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

/// A loaded file of one track.
struct LoadedMidi {
  explicit LoadedMidi(std::string_view track, std::uint32_t ppqn = 96)
      : file(directory.write("song.mid", midi(ppqn).track(track)).c_str(), 0) {
    file.load();
  }
  TemporaryDirectory directory;
  MidiAssetFile file;
};

/// Reads up to the end of the image. Returns what is printed of all events, or of those that a mask
/// and a channel select; what goes to standard error follows "2>".
std::string dump(MidiFile& file, std::uint32_t mask = 0, std::uint8_t channel = 0) {
  std::uint32_t number = 0;
  std::uint32_t time = 0;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  for (HeldEvent ev; file.getNextEvent(ev); clearEvent(ev)) {
    EXPECT_EQ(std::pair(ev.sequence, ev.absoluteTime), std::pair(++number, time += ev.deltaTime));
    EXPECT_EQ(ev.metaType == 0xFF, ev.channel != 0) << "for channel messages only";
    EXPECT_NE(ev.data, nullptr) << "an empty payload is a block too";
    mask == 0 ? file.printEvent(ev) : file.printEventOnChannel(ev, mask, channel);
  }
  const std::string problems = testing::internal::GetCapturedStderr();
  return testing::internal::GetCapturedStdout() + (problems.empty() ? "" : "2>" + problems);
}

TEST(MidiAssetFile, JudgesTheTwoHeadersAndTheFormatOnlyAndSaysWhyInOrder) {
  const TemporaryDirectory directory;
  const std::string name = directory.path("song.mid");
  const std::string notMidi = "Error: The file \"" + name + "\" is not a Standard MIDI File\n";
  const std::string premature = "Error: premature EOF.\n" + notMidi;
  const std::string noTrack = "Error: Not a standard midi file track header\n" + notMidi;
  const std::string small = midi().track(events().tempo(0, 500000));
  const std::tuple<std::uint16_t, std::string, std::string> cases[] = {
      {0, midi().text("MTrk\xFF\xFF\xFF\xFF"), "taken"},
      {0x100, midi(96, 7).track(""), "taken"},
      {0, small, "taken"},
      {0, small.substr(0, 3), notMidi},
      {0, "mthd" + small.substr(4), "Error: Not a standard midi file.\n" + notMidi},
      {0, small.substr(0, 13), premature},
      {0, midi(96, 1).text("mtrk"), noTrack},
      {0, small.substr(0, 21), premature},
      {0, "", ""},  // the last one: the file stays open
  };
  MidiAssetFile file(name.c_str(), 0);
  std::uint32_t tempo = 0;
  for (const auto& [anyFormat, content, outcome] : cases) {
    directory.write("song.mid", content);
    file.anyFormat = anyFormat;
    testing::internal::CaptureStderr();
    const bool taken = file.load();
    EXPECT_EQ(testing::internal::GetCapturedStderr() + (taken ? "taken" : ""), outcome);
    EXPECT_EQ(file.assetSize, taken ? content.size() : 0);
    EXPECT_EQ(file.assetData, taken ? file.image.get() : nullptr);
    EXPECT_EQ(taken && file.firstTempo(tempo), content == small);
  }
  EXPECT_FALSE(file.firstTempo(tempo)) << "the track of an older image lies outside this one";
}

TEST(MidiAssetFile, HoldsTheHeadersAndWritesTheWholeImage) {
  const std::string content = midi(0xE728, 7).track("abc").track("");
  const TemporaryDirectory directory;
  MidiAssetFile file(directory.write("song.mid", content).c_str(), 1);
  EXPECT_FALSE(file.loadType0()) << "but all is loaded";
  testing::internal::CaptureStdout();
  file.printHeaderInfo();
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "\nFormat:\t\t\t\t7\nNumber of Tracks:\t2\nPpqn:\t\t\t\t59176\n\n\n");
  EXPECT_EQ(file.headerLength, 6U);
  EXPECT_EQ(file.trackLength, 3U);
  EXPECT_EQ(file.trackHeaderOffset, 14U);
  EXPECT_TRUE(file.writeImageAs(directory.path("a.mid").c_str()));
  DiskFile out(modeWrite, directory.path("b.mid").c_str(), "");
  EXPECT_FALSE(file.writeImageTo(out)) << "not open";
  EXPECT_TRUE(out.open() && file.writeImageTo(out) && out.close());
  EXPECT_EQ(directory.read("a.mid") + directory.read("b.mid"), content + content);
}

TEST(MidiFile, ReadsAndPrintsEveryKindOfEventTwiceAlike) {
  Events track = events().note(0, 1, 60, 100).message(100, 23, 0).noteOff(284, 16, 12);
  track.message(0x3FFF, 0xB0, 91, 255).message(0x4000, 0xB1, 128, 1).message(0, 0xC1, 5);
  track.message(0, 0xE0, 1, 64).message(0, 0xD0, 7).message(0, 0xA0, 60, 8);
  // The raw events use the running status, 0xF0 and 0xFF too.
  track.system(1, 0xF0, "\x0A\xF7").raw(1, "\1Z").meta(12549375, 0, "\1\2").raw(0, "\1\1t");
  track.meta(0, 2, "c").meta(0, 3, "n").meta(0, 4, "i").meta(0, 5, "l").meta(0, 6, {"m\0M", 3});
  track.meta(0, 7, "").meta(0, 32, "\1").endOfTrack().tempo(0, 500000).tempo(0, 999);
  track.meta(0, 84, "\1\2\3\4\5").meta(0, 88, "\6\3\x18\x08").meta(0, 88, "\1\x0F");
  track.meta(0, 89, "\xFD\2").meta(0, 89, "\2").meta(0, 89, "").meta(0, 127, "\x0A");
  LoadedMidi loaded(track.meta(0, 9, "unknown").system(0, 0xFE, "unknown"));
  // Each | is a time and "Meta  - ", @ is a zero byte. The low 16 bits of that time's bar are
  // negative, so it has the three tabs of a bar below 10.
  std::string expected =
      "1:1:  0\t\t\t1  Note On  - C3               Note #: 60  Velocity: 100\n"
      "1:2:  4\t\t\t1  Note Off - B0               Note #: 23  Velocity: 0  \n"
      "2:1:  0\t\t\t16 Note Off - C-1              Note #: 12  Velocity: 64 \n"
      "44:3: 63\t\t1  CC - External Effect Depth  CC#: 91     Value: 255\n"
      "87:2: 31\t\t2  CC - Undefined              CC#: 128    Value: 1  \n"
      "87:2: 31\t\t2  Program Change              Number: 5  \n"
      "87:2: 31\t\t1  Pitch Wheel                 msb: 64  lsb 1  \n"
      "87:2: 31\t\t1  Channel Pressure            Pressure: 7  \n"
      "87:2: 31\t\t1  Poly Pressure               Note #: 60  Pressure: 8  \n"
      "87:2: 32\t\tSysEx - 0x0a, 0xf7, \n87:2: 33\t\tSysEx - 0x5a, \n"
      "| SequenceNumber: 1\n| Text - t\n| CopyrightNotice - c\n| TrackName - n\n"
      "| InstrumentName - i\n| LyricText - l\n| Marker - m@M\n| CuePoint - \n| ChannelPrefix\n"
      "| EndOfTrack\n| Tempo - Bpm: 119.999994\n| Tempo - \n| SmpteOffset - 1:2:3:4.5\n"
      "| TimeSignature - 6/8 Time, Midi ppqn: 24 32'nds pqn: 8\n"
      "| TimeSignature - 1/-32768 Time, Midi ppqn: 0 32'nds pqn: 0\n"
      "| KeySignature - -3 Flat(s) Minor\n| KeySignature - 2 Sharps(s) Major\n"
      "| KeySignature - Key of C Major\n| SequencerSpecific - 0x0a, \n|";
  const std::string column = "32768:1:  0\t\t\t";
  expected = std::regex_replace(expected, std::regex("[|]"), column + "Meta  - ") + column;
  expected[expected.find('@')] = '\0';
  EXPECT_EQ(dump(loaded.file), expected + "2>TROUBLE!!!!\n") << "for the last event";
  loaded.file.rewind();
  EXPECT_EQ(loaded.file.bytesRead, loaded.file.imageSize) << "a rewind doesn't count back";
  EXPECT_EQ(dump(loaded.file), expected + "2>TROUBLE!!!!\n");
}

TEST(MidiFile, CutTrackHasItsWholeEventsOnly) {
  const std::string track =
      events().note(0, 1, 60, 9).raw(1, "\x3C\x07").tempo(200, 1).endOfTrack();
  const std::vector<std::size_t> ends = {4, 7, 15, 19};  // of the four events
  for (std::size_t size = 0; size <= track.size(); ++size) {
    LoadedMidi cut(track.substr(0, size));
    std::ptrdiff_t whole = 0;
    for (HeldEvent ev; cut.file.getNextEvent(ev); clearEvent(ev)) {
      ++whole;
    }
    EXPECT_EQ(whole, std::count_if(ends.begin(), ends.end(), [&](auto end) { return end <= size; }))
        << size;
  }
}

TEST(MidiFile, FilterBitsSelectTheirKindsOnly) {
  Events track = events().note(0, 2, 60, 1).note(1, 1, 60, 0).message(1, 0xA0, 60, 1);
  track.message(1, 0xB0, 7, 1).message(1, 0xB0, 10, 1).message(1, 0xB0, 32, 1);
  track.message(1, 0xB0, 1, 1).message(1, 0xC0, 1).message(1, 0xD0, 1).message(1, 0xE0, 1, 1);
  LoadedMidi loaded(track.system(1, 0xF0, "").system(1, 0xF3, "").endOfTrack(1));
  std::string ticks;  // for each mask; the last one is asked of channel 2 alone
  for (const int mask : {1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 1024, 2048, 0xE08, 3}) {
    loaded.file.rewind();
    const auto lines = dump(loaded.file, static_cast<std::uint32_t>(mask), mask == 3 ? 2 : 0);
    ticks += std::regex_replace(lines, std::regex(".*: *(\\d+)\t.*\n"), "$1 ") + "| ";
  }
  EXPECT_EQ(ticks, "0 | 1 | 2 | 3 4 5 6 | 7 | 8 | 9 | 10 | 12 | 5 | 3 | 4 | 3 4 5 | 0 | ");
}

TEST(MidiFile, NamesNotesAndTimesWithoutTicks) {
  LoadedMidi loaded(events().endOfTrack(999999), 0);
  EXPECT_EQ(dump(loaded.file), "1:1:999999\t\t\tMeta  -  EndOfTrack\n");
  EXPECT_STREQ(loaded.file.noteName(60, 1), "C4");
  EXPECT_STREQ(loaded.file.noteName(60, 2), "C3");
}

TEST(MidiFile, NamesEachController) {
  // "-" is an undefined controller, "=" the low byte of one.
  const std::string expected =
      "Bank Select MSB, Mod Wheel, Breath Controller, -, Foot Controller, Portamento Time, Data "
      "Entry MSB, Volume, Balance, -, Pan, Expression, -, -, -, -, General Purpose 1, General "
      "Purpose 2, General Purpose 3, General Purpose 4, -, -, -, -, -, -, -, -, -, -, -, -, "
      "Bank Select LSB, Mod Wheel LSB, Breath Controller LSB, =, Foot Controller LSB, "
      "Portamento Time LSB, Data Entry LSB, Volume LSB, Balance LSB, =, Pan LSB, Expression "
      "LSB, =, =, =, =, General Purpose 1 LSB, General Purpose 2 LSB, General Purpose 3 LSB, "
      "General Purpose 4 LSB, =, =, =, =, =, =, =, =, =, =, =, =, Sustain, Portamento onOff, "
      "Sostenuto, Soft Pedal, Legato, Hold 2, Sound Control 1, Sound Control 2, Sound Control "
      "3, Sound Control 4, Sound Control 5, Sound Control 6, Sound Control 7, Sound Control 8, "
      "Sound Control 9, Sound Control 10, General Purpose 5, General Purpose 6, General Purpose "
      "7, General Purpose 8, Portamento Control, Effects Depth 1, Effects Depth 2, Effects "
      "Depth 3, Effects Depth 4, Effects Depth 5, -, External Effect Depth, Tremolo Depth, "
      "Chorus Depth, Detune Depth, Phaser Depth, Data Increment, Data Decrement, NRPN LSB, NRPN "
      "MSB, RPN LSB, RPN MSB, -, -, -, -, -, -, -, -, -, -, -, -, -, -, -, -, -, -, -, Reset "
      "All, Local OnOff, All Notes Off, Omni Off, Omni On, Mono On/Poly Off, Poly On/Mono Off";
  std::string names;
  for (const ControllerName& name : controllerNames) {
    const std::string text = name.data();
    const std::string shown = text == "Undefined" ? "-" : text == "Undefined LSB" ? "=" : text;
    names += (names.empty() ? "" : ", ") + shown;
  }
  EXPECT_EQ(names, expected);
}

TEST(MidiFile, AFirstEventWithoutStatusHasNoPayloadAndTimesKeep32Bits) {
  // A delta time of 35 bits, all set, and one of 3 before a system event that claims 2^28 bytes.
  LoadedMidi loaded("\xFF\xFF\xFF\xFF\x7F\x03\xF0\xFF\xFF\xFF\x7Fxyz");
  HeldEvent ev;
  EXPECT_TRUE(loaded.file.getNextEvent(ev) && ev.absoluteTime == 0xFFFFFFFF);
  EXPECT_EQ(ev.status + ev.metaType + ev.channel + ev.dataLength, 0U);
  EXPECT_FALSE(loaded.file.getNextEvent(ev));
  EXPECT_EQ(ev.absoluteTime, 2U);
}

TEST(MidiFile, TheFirstTempoBeforeTheEndOfTheTrackCounts) {
  Events million = events().note(0, 1, 60, 9);
  for (int note = 1; note < 1000000; ++note) {
    million += "\1<@";  // a tick later, under the running status
  }
  const std::tuple<std::string, std::uint32_t, std::uint32_t> cases[] = {
      {million.tempo(0, 4242), 4242, 1000001},
      {events().tempo(9, 1500000).tempo(0, 1), 1500000, 1},
      {events().note(0, 1, 60, 9).tempo(5000, 0), 0, 2},
      {events().meta(0, 0x51, "\x12\xD6\x87\x09"), 1234567, 1},
      {events().endOfTrack().tempo(0, 1), 7, 1},
      {events().note(0, 1, 60, 100).str() + "\x81", 7, 1},
      {events().meta(0, 0x51, "\x07\xA1").tempo(0, 1), 7, 1}};
  for (const auto& [track, expected, eventsRead] : cases) {
    LoadedMidi loaded(track);
    std::uint32_t tempo = 7;
    EXPECT_EQ(loaded.file.firstTempo(tempo), expected != 7);
    EXPECT_EQ(std::pair(tempo, loaded.file.eventCount), std::pair(expected, eventsRead));
  }
  LoadedMidi loaded(events().tempo(0, 1234567));
  float beatsPerMinute = 0;
  std::uint32_t milliseconds = 0;
  EXPECT_TRUE(loaded.file.firstTempoBpm(beatsPerMinute) && loaded.file.firstTempoMs(milliseconds));
  EXPECT_EQ(milliseconds, 1234U);
  // Of 0.000001 in single precision, and of a quotient in double precision.
  EXPECT_TRUE(LoadedMidi(events().tempo(0, 69)).file.firstTempoBpm(beatsPerMinute));
  EXPECT_EQ(beatsPerMinute, 869565.25F);
}

TEST(MidiFile, FindsEventsAndCountsTheNotesThatSoundAtOnce) {
  Events track = events().noteOff(0, 1, 60).note(0, 1, 60, 9).note(0, 1, 60, 9).note(0, 1, 64, 9);
  track.noteOff(9, 1, 61).noteOff(0, 2, 60).noteOff(0, 1, 60).meta(0, 1, "").message(0, 0xC0, 9);
  LoadedMidi loaded(track.note(0, 1, 64, 0).note(0, 2, 60, 9).note(0, 2, 64, 9).endOfTrack());
  MidiFile& file = loaded.file;
  MidiEvent* ev = MidiFile::newEvent();
  EXPECT_TRUE(file.findEvent(*ev, 0x90, true) && file.findEvent(*ev, 0x90, true));
  EXPECT_TRUE(ev->sequence == 3 && !isNoteNumber(*ev, 64)) << "the next one at each call";
  EXPECT_TRUE(file.findEvent(*ev, 0x90, 64, false) && isNoteNumber(*ev, 64));
  EXPECT_TRUE(file.findEvent(*ev, 0xC0) && isProgramNumber(*ev, 9) && !isProgramNumber(*ev, 8));
  EXPECT_FALSE(file.findEvent(*ev, 0x80, 99, false) || !isMetaType(*ev, 47));
  EXPECT_FALSE(file.findEvent(*ev, 0xFF, 99, false) || !isMetaType(*ev, 47));
  EXPECT_TRUE(file.findEvent(*ev, 0xFF) && isMetaType(*ev, 1));
  EXPECT_TRUE(file.findEvent(*ev, 0x90, 64, true) && isNoteNumber(*ev, 64)) << "velocity 0";
  EXPECT_EQ(ev->sequence, 10U);
  MidiFile::deleteEvent(ev);
  file.rewind();
  std::uint16_t voices = 0;
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_TRUE(file.countPolyphony(voices));
  EXPECT_FALSE(file.countPolyphony(voices)) << "after the end of the track";
  EXPECT_EQ(voices, 3);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Poly update: 1\nPoly update: 2\nPoly update: 3\nVoice Channel Freed\n"
            "Voice Channel Freed\n");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "getNextEvent()==FAIL in findEvent()\n");
}

TEST(MidiFile, ChannelHasEventsOfTheSelectedKinds) {
  Events track = events().note(0, 1, 60, 9).noteOff(0, 2, 60).message(0, 0xA2, 60, 9);
  track.message(0, 0xB3, 7, 9).message(0, 0xC4, 1).message(0, 0xD5, 1).message(0, 0xE6, 0, 64);
  LoadedMidi loaded(track.endOfTrack());
  for (std::int16_t channel = 0; channel < 8; ++channel) {
    const auto bit = static_cast<std::uint8_t>(1 << channel);
    EXPECT_EQ(loaded.file.channelHasEvents(channel, bit), channel < 7) << channel;
    EXPECT_FALSE(loaded.file.channelHasEvents(channel, bit ^ 0xFF)) << channel;
  }
}

}  // namespace
}  // namespace tavrel::test
