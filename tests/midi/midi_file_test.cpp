#include "midi/midi_file.h"

#include <algorithm>

#include "midi/controller_names.h"
#include "tests/support/all.h"
#include "tests/support/midi_builder.h"
#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
/// A loaded file of one track.
struct LoadedMidi {
  explicit LoadedMidi(std::string_view track, std::uint32_t ppqn = 96)
      : file(directory.write("song.mid", midi(ppqn).track(track)).c_str()) {
    EXPECT_TRUE(file.loadType0());
  }
  TemporaryDirectory directory;
  MidiFile file;
};

/// Reads expected lines, which were derived by hand.
std::string expectedLines(const char* file) {
  return TemporaryDirectory().read(TAVREL_SOURCE_DIR "/tests/midi/" + std::string(file));
}

TEST(MidiFile, ReadsAndPrintsEveryKindOfEventTwiceAlike) {
  Events track = events().note(0, 1, 60, 100).message(100, 23, 0).noteOff(284, 16, 12);
  track.message(3071, 0xB0, 91, 255).message(1, 0xB1, 128, 1).message(0, 0xC1, 5);
  track.message(0, 0xE0, 1, 64).message(0, 0xD0, 7).message(0, 0xA0, 60, 8);
  // The raw events use the running status, 0xF0 and 0xFF too. The low 16 bits of the last time's
  // bar are negative, so it has the three tabs of a bar below 10.
  track.system(0x3FFF, 0xF0, "\x0A\xF7").raw(0x4000, "\1Z").meta(12546305, 0, "\1\2");
  track.raw(0, "\1\1t").meta(0, 2, "c").meta(0, 3, "n").meta(0, 4, "i").meta(0, 5, "l");
  track.meta(0, 6, {"m\0M", 3}).meta(0, 7, "").meta(0, 32, "\1").tempo(0, 500000);
  track.meta(0, 81, "\7\xA1").tempo(0, 1000).tempo(0, 999).meta(0, 84, "\1\2\3\4\5");
  track.meta(0, 88, "\6\3\x18\x08").meta(0, 88, "\1\x0F").meta(0, 88, "\1\x10");
  track.meta(0, 89, "\xFF\2").meta(0, 89, "\1").meta(0, 89, "");
  track.meta(0, 127, std::string(600, '\x5C')).meta(0, 9, "open").system(0, 0xFE, "unknown");
  LoadedMidi loaded(track.endOfTrack());
  std::string lines = expectedLines("dump.txt");
  std::replace(lines.begin(), lines.end(), '@', '\0');
  for (const std::size_t pass : {1U, 2U}) {
    SCOPED_TRACE(pass);
    std::uint32_t time = 0;
    std::uint32_t number = 0;
    const Printed printed = printedBy([&] {
      for (HeldEvent ev; loaded.file.getNextEvent(ev); clearEvent(ev)) {
        EXPECT_EQ(ev.sequence, ++number);
        EXPECT_EQ(ev.absoluteTime, time += ev.deltaTime);
        EXPECT_EQ(ev.metaType == 0xFF, ev.channel != 0) << "for channel messages only";
        EXPECT_NE(ev.data, nullptr) << "an empty payload is a block too";
        loaded.file.printEvent(ev);
      }
    });
    EXPECT_EQ(printed.output, lines);
    EXPECT_EQ(printed.errors, "TROUBLE!!!!\n");
    loaded.file.rewind();
    EXPECT_EQ(loaded.file.bytesRead, 22 + track.size() * pass);
  }
}

TEST(MidiFile, CutTrackHasItsWholeEventsOnly) {
  const std::string track =
      events().note(0, 1, 60, 9).raw(1, "\x3C\x07").tempo(200, 1).endOfTrack();
  const std::size_t deltaEnds[] = {1, 5, 9, 16};
  const std::size_t ends[] = {4, 7, 15, 19};
  for (std::size_t size = 0; size <= track.size(); ++size) {
    SCOPED_TRACE(size);
    const auto isIn = [size](std::size_t end) { return end <= size; };
    LoadedMidi cut(track.substr(0, size));
    std::ptrdiff_t whole = 0;
    for (HeldEvent ev; cut.file.getNextEvent(ev); clearEvent(ev)) {
      ++whole;
    }
    EXPECT_EQ(whole, std::count_if(std::begin(ends), std::end(ends), isIn));
    EXPECT_EQ(cut.file.eventCount, std::count_if(std::begin(deltaEnds), std::end(deltaEnds), isIn));
    EXPECT_EQ(cut.file.bytesRead, 22 + size);
    // The status is looked at before it is read.
    EXPECT_EQ(cut.file.atEnd,
              std::count(std::begin(deltaEnds), std::end(deltaEnds), size) == 1 ? 0 : 1);
  }
}

TEST(MidiFile, BitsSelectTheirKindsOnly) {
  Events track = events().note(0, 1, 60, 1).noteOff(1, 2, 60).message(1, 0xA2, 60, 1);
  track.message(1, 0xB3, 7, 1).message(1, 0xB3, 10, 1).message(1, 0xB3, 32, 1);
  track.message(1, 0xB3, 1, 1).message(1, 0xC4, 1).message(1, 0xD5, 1).message(1, 0xE6, 1, 1);
  LoadedMidi loaded(track.system(1, 0xF0, "").system(1, 0xF3, "").endOfTrack(1));
  const struct {
    std::uint32_t mask;
    std::uint8_t channel;
    const char* ticks;  // of the events that are printed
  } cases[] = {
      {0x001, 0, "0 "},     {0x002, 0, "1 "}, {0x004, 0, "2 "}, {0x008, 0, "3 4 5 6 "},
      {0x010, 0, "7 "},     {0x020, 0, "8 "}, {0x040, 0, "9 "}, {0x080, 0, "10 "},
      {0x100, 0, "12 "},    {0x200, 0, "5 "}, {0x400, 0, "3 "}, {0x800, 0, "4 "},
      {0xE08, 0, "3 4 5 "}, {0x003, 2, "1 "}, {0x1FF, 8, ""},   {0xFFFFF000, 0, ""},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(testing::Message() << std::hex << row.mask);
    loaded.file.rewind();
    std::string ticks;
    for (HeldEvent ev; loaded.file.getNextEvent(ev); clearEvent(ev)) {
      const auto print = [&] { loaded.file.printEventOnChannel(ev, row.mask, row.channel); };
      ticks += printedBy(print).output.empty() ? "" : std::to_string(ev.absoluteTime) + " ";
    }
    EXPECT_EQ(ticks, row.ticks);
  }
  for (std::int16_t channel = 0; channel < 8; ++channel) {
    const auto bit = static_cast<std::uint8_t>(1 << channel);  // of the kind on this channel
    EXPECT_EQ(loaded.file.channelHasEvents(channel, bit), channel < 7) << channel;
    EXPECT_FALSE(loaded.file.channelHasEvents(channel, bit ^ 0xFF)) << channel;
  }
}

TEST(MidiFile, NamesNotesAndTimesWithoutTicks) {
  LoadedMidi loaded("", 0);
  std::string octave;
  for (std::uint8_t note = 60; note < 72; ++note) {
    octave += loaded.file.noteName(note, 0) + std::string(" ");
  }
  EXPECT_EQ(octave, "C3 C#3 D3 D#3 E3 F3 F#3 G3 G#3 A3 A#3 B3 ");
  EXPECT_STREQ(loaded.file.noteName(60, 1), "C4");
  EXPECT_STREQ(loaded.file.noteName(60, 2), "C3");
  MidiEvent ev;
  ev.absoluteTime = 999999;
  EXPECT_STREQ(loaded.file.timeText(ev), "1:1:999999");
}

TEST(MidiFile, FirstEventWithoutStatusHasNoPayloadAndTimesKeep32Bits) {
  // A delta time of 35 bits, all set, then one of 3 before an event that claims 2^28 - 1 bytes.
  LoadedMidi loaded("\xFF\xFF\xFF\xFF\x7F\x03\xF0\xFF\xFF\xFF\x7Fxyz");
  HeldEvent ev;
  EXPECT_TRUE(loaded.file.getNextEvent(ev));
  EXPECT_EQ(ev.absoluteTime, 0xFFFFFFFF);
  EXPECT_EQ(ev.status, 0U);
  EXPECT_EQ(ev.data, nullptr);
  EXPECT_FALSE(loaded.file.getNextEvent(ev));
  EXPECT_EQ(ev.absoluteTime, 2U);
  EXPECT_EQ(ev.dataLength, 0xFFFFFFFU);
}

TEST(MidiFile, FindsTheFirstTempoBeforeTheEndOfTheTrack) {
  const struct {
    const char* name;
    std::string track;
    std::uint32_t tempo, eventsRead;
  } cases[] = {
      {"after a note", events().note(0, 1, 60, 9).tempo(5000, 4242), 4242, 2},
      {"two tempos", events().tempo(9, 1500000).tempo(0, 1), 1500000, 1},
      {"four bytes", events().meta(0, 81, "\x12\xD6\x87\x09"), 1234567, 1},
      {"two bytes", events().meta(0, 81, "\x07\xA1").tempo(0, 1), 7, 1},
      {"after the end", events().endOfTrack().tempo(0, 1), 7, 1},
      {"cut", events().note(0, 1, 60, 100).str() + "\x81", 7, 1},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.name);
    LoadedMidi loaded(row.track);
    HeldEvent ev;
    EXPECT_TRUE(loaded.file.getNextEvent(ev)) << "the search starts over";
    std::uint32_t tempo = 7;
    EXPECT_EQ(loaded.file.firstTempo(tempo), row.tempo != 7);
    EXPECT_EQ(tempo, row.tempo);
    EXPECT_EQ(loaded.file.eventCount, row.eventsRead);
  }
}

TEST(MidiFile, ConvertsTheFirstTempo) {
  float beatsPerMinute = 0;
  std::uint32_t milliseconds = 0;
  EXPECT_FALSE(LoadedMidi("").file.firstTempoMs(milliseconds));
  EXPECT_FALSE(LoadedMidi("").file.firstTempoBpm(beatsPerMinute));
  EXPECT_TRUE(LoadedMidi(events().tempo(0, 1234567)).file.firstTempoMs(milliseconds));
  EXPECT_TRUE(LoadedMidi(events().tempo(0, 69)).file.firstTempoBpm(beatsPerMinute));
  EXPECT_EQ(milliseconds, 1234U);
  // 0.000001 in single precision, the quotient in double precision.
  EXPECT_EQ(beatsPerMinute, 869565.25F);
}

TEST(MidiFile, FindsEventsAndCountsTheNotesThatSoundAtOnce) {
  Events track = events().noteOff(0, 1, 60).note(0, 1, 60, 9).note(0, 1, 60, 9).note(0, 1, 64, 9);
  track.noteOff(9, 1, 61).noteOff(0, 2, 60).noteOff(0, 1, 60).meta(0, 1, "").message(0, 0xC0, 9);
  track.note(0, 1, 64, 0).noteOff(0, 1, 64).note(0, 2, 60, 9).note(0, 16, 255, 9).endOfTrack();
  LoadedMidi loaded(track);
  MidiFile& file = loaded.file;
  MidiEvent* ev = MidiFile::newEvent();
  const auto found = [ev](bool result) { return result ? ev->sequence : 0; };
  EXPECT_EQ(found(file.findEvent(*ev, 0x90, true)), 2U);
  EXPECT_EQ(found(file.findEvent(*ev, 0x90, true)), 3U) << "from the cursor";
  EXPECT_EQ(found(file.findEvent(*ev, 0x90, 64, false)), 4U) << "from the start";
  EXPECT_EQ(found(file.findEvent(*ev, 0x90, 64, true)), 10U) << "velocity 0";
  EXPECT_TRUE(all({isNoteNumber(*ev, 64), !isNoteNumber(*ev, 60)}));
  EXPECT_EQ(found(file.findEvent(*ev, 0xC0)), 9U) << "from the start";
  EXPECT_TRUE(all({isProgramNumber(*ev, 9), !isProgramNumber(*ev, 8), !isNoteNumber(*ev, 9)}));
  EXPECT_EQ(found(file.findEvent(*ev, 0xFF)), 8U) << "any meta event";
  EXPECT_EQ(ev->channel, 0) << "cleared";
  EXPECT_EQ(found(file.findEvent(*ev, 0xFF, 0, false)), 0U) << "empty payloads";
  EXPECT_EQ(found(file.findEvent(*ev, 0x80, 99, false)), 0U);
  EXPECT_EQ(ev->sequence, 14U) << "the end of the track";
  MidiFile::deleteEvent(ev);
  MidiFile::deleteEvent(nullptr);
  file.rewind();
  std::uint16_t voices = 0;
  const Printed printed = printedBy([&] {
    EXPECT_TRUE(file.countPolyphony(voices));
    EXPECT_FALSE(file.countPolyphony(voices)) << "after the end of the track";
  });
  EXPECT_EQ(printed.errors, "getNextEvent()==FAIL in findEvent()\n");
  EXPECT_EQ(printed.output,
            "Poly update: 1\nPoly update: 2\nPoly update: 3\nVoice Channel Freed\n"
            "Voice Channel Freed\n");
  EXPECT_EQ(voices, 3);
}

TEST(ControllerNames, AreInTheOrderOfTheirNumbers) {
  std::string names;
  for (const ControllerName& name : controllerNames) {
    names += std::string(name.data()) + '\n';
  }
  EXPECT_EQ(names, expectedLines("controllers.txt"));
  EXPECT_EQ(sizeof(ControllerName), 22U);
}

}  // namespace tavrel::test
