#include "midi/sequence_summary.h"

#include <gtest/gtest.h>

#include "midi/midi_asset_file.h"
#include "tests/support/midi_builder.h"

namespace tavrel::test {

TEST(SequenceSummary, CountsEventsSecondsAndVoices) {
  constexpr double kNone = -1;
  const Events minute = events().endOfTrack(5760);  // ticks; at 40 a frame, 144 frames
  Events voices = events().noteOff(0, 1, 60).note(0, 1, 60, 1).note(0, 1, 60, 1).note(0, 2, 60, 1);
  voices.note(0, 1, 60, 0).noteOff(0, 2, 60).note(0, 1, 61, 1).endOfTrack().note(0, 1, 62, 1);
  const struct {
    const char* name;
    std::uint32_t division;
    std::string track;
    std::uint32_t events, polyphony;  // 7: the track breaks off
    double seconds;
  } rows[] = {
      {"a tick per beat of 120 bpm", 1, minute, 1, 0, 2880},
      {"two tempos", 96, events().tempo(0, 1000000).tempo(96, 0xFFFFFF).endOfTrack(192), 3, 0,
       1 + 2 * 16.777215},
      {"tempo too short", 96, events().meta(0, 0x51, "\x01\x01").endOfTrack(96), 2, 0, 0.5},
      {"tempo 0", 96, events().tempo(0, 0).endOfTrack(96), 2, 0, 0},
      {"most ticks", 32767, events().endOfTrack(0xFFFFFFF), 1, 0, 0xFFFFFFF / 65534.0},
      {"25 frames", 0xE728, minute, 1, 0, 5.76},
      {"29.97 frames", 0xE328, minute, 1, 0, 4.8048},
      {"tempo in frames of a second", 0xFF19, events().tempo(0, 1).endOfTrack(1000), 2, 0, 40},
      {"division 0", 0, minute, 1, 0, kNone},
      {"no ticks per frame", 0xE700, minute, 1, 0, kNone},
      {"voices", 96, voices, 8, 3, 0},
      // Before the first status, events have no payload: 60 and 1 are delta times.
      {"no status", 96, Bytes().u8(0).u8(60).u8(1).text(events().endOfTrack()), 4, 0, 61 / 192.0},
      {"no end", 96, events().note(0, 1, 60, 1), 7, 7, 7},
      {"cut end", 96, events().endOfTrack().str().substr(0, 3), 7, 7, 7},
  };
  MidiAssetFile file("", 0);
  EXPECT_FALSE(file.useImage(newBytes(0), 0));
  EXPECT_FALSE(file.useImage(nullptr, 5));
  for (const auto& [name, division, track, events, polyphony, seconds] : rows) {
    SCOPED_TRACE(name);
    const std::string bytes = midi(division).track(track);
    ASSERT_TRUE(file.useImage(blockOf(bytes), static_cast<std::uint32_t>(bytes.size())));
    ASSERT_TRUE(file.judge());
    SequenceSummary summary{7, 7, 7};
    for (const int walk : {1, 2}) {
      EXPECT_EQ(summarize(file, summary), events != 7) << "walk " << walk;
    }
    EXPECT_EQ(summary.events, events);
    EXPECT_EQ(summary.polyphony, polyphony);
    EXPECT_NEAR(summary.seconds.value_or(kNone), seconds, 1e-9);
  }
}

}  // namespace tavrel::test
