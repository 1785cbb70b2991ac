#include "midi/sequence_summary.h"

#include <gtest/gtest.h>

#include <cstring>

#include "midi/midi_asset_file.h"
#include "tests/support/midi_builder.h"

namespace tavrel::test {

/// Accepts a sequence that was never in a file.
bool use(MidiAssetFile& file, const std::string& bytes) {
  ByteBlock image = newBytes(bytes.size());
  std::memcpy(image.get(), bytes.data(), bytes.size());
  return file.useImage(std::move(image), static_cast<std::uint32_t>(bytes.size())) && file.judge();
}

TEST(SequenceSummary, CountsEventsSecondsAndVoices) {
  constexpr double kNone = -1;
  const auto minute = [] { return events().endOfTrack(5760); };  // ticks
  const auto smpte = [&](std::size_t frames) {
    return midi((256 - frames) << 8 | 40).track(minute());  // 144 frames
  };
  Events longTrack;
  for (int i = 0; i < 17; ++i) {
    longTrack.message(0xFFFFFFF, 0xC0, 1);
  }
  longTrack.endOfTrack();
  const struct {
    const char* name;
    std::string content;
    std::uint32_t events, polyphony;
    double seconds;
  } rows[] = {
      {"120 bpm", midi(48).track(minute()), 1, 0, 60},
      {"first tempo late", midi(96).track(events().tempo(96, 250000).endOfTrack(96)), 2, 0, 0.75},
      {"two tempos", midi(96).track(events().tempo(0, 1000000).tempo(96, 0xFFFFFF).endOfTrack(192)),
       3, 0, 1 + 2 * 16.777215},
      {"tempo too short", midi(96).track(events().meta(0, 0x51, "\x01\x01").endOfTrack(96)), 2, 0,
       0.5},
      {"tempo 0", midi(96).track(events().tempo(0, 0).endOfTrack(96)), 2, 0, 0},
      {"ticks beyond 32 bits", midi(32767).track(longTrack), 18, 0, 17 * (0xFFFFFFF / 65534.0)},
      {"24 frames", smpte(24), 1, 0, 6},
      {"25 frames", smpte(25), 1, 0, 5.76},
      {"29.97 frames", smpte(29), 1, 0, 4.8048},
      {"30 frames", smpte(30), 1, 0, 4.8},
      {"tempo in frames", midi(0xE728).track(events().tempo(0, 1).endOfTrack(1000)), 2, 0, 1},
      {"division 0", midi(0).track(minute()), 1, 0, kNone},
      {"no ticks per frame", midi(0xE700).track(minute()), 1, 0, kNone},
      {"voices",
       midi(96).track(events()
                          .noteOff(0, 1, 60)  // none sounds
                          .note(0, 1, 60, 1)
                          .note(0, 1, 60, 1)
                          .note(0, 2, 60, 1)
                          .note(0, 1, 60, 0)
                          .noteOff(0, 2, 60)
                          .note(0, 1, 61, 1)
                          .endOfTrack()
                          .note(0, 1, 62, 1)),
       8, 3, 0},
  };
  for (const auto& [name, content, events, polyphony, seconds] : rows) {
    SCOPED_TRACE(name);
    MidiAssetFile file("", 0);
    ASSERT_TRUE(use(file, content));
    SequenceSummary summary;
    EXPECT_TRUE(summarize(file, summary));
    EXPECT_EQ(summary.events, events);
    EXPECT_EQ(summary.polyphony, polyphony);
    EXPECT_NEAR(summary.seconds.value_or(kNone), seconds, 1e-9);
  }
}

TEST(SequenceSummary, FailsIfTheTrackBreaksOff) {
  for (const std::string& track :
       {events().str(), events().note(0, 1, 60, 1).str(), events().note(0, 1, 60, 1).str() + '\0',
        events().endOfTrack().str().substr(0, 3), events().system(0, 0xF0, "abc").str() + '\0'}) {
    SCOPED_TRACE(testing::PrintToString(track));
    MidiAssetFile file("", 0);
    ASSERT_TRUE(use(file, midi().track(track)));
    SequenceSummary summary{1, 2, 3.0};
    EXPECT_FALSE(summarize(file, summary));
    EXPECT_EQ(summary.events, 1U);
  }
}

TEST(SequenceSummary, EmptyImageIsNoSequence) {
  MidiAssetFile file("", 0);
  EXPECT_FALSE(file.useImage(newBytes(0), 0));
  EXPECT_FALSE(file.useImage(nullptr, 5));
}

TEST(SequenceSummary, WalksStartAfresh) {
  MidiAssetFile file("", 0);
  // Before the first status, events have no payload: 60 and 1 are delta times.
  ASSERT_TRUE(use(file, midi().track(Bytes().u8(0).u8(60).u8(1).text(events().endOfTrack()))));
  SequenceSummary first;
  SequenceSummary second;
  ASSERT_TRUE(summarize(file, first));
  ASSERT_TRUE(summarize(file, second));
  EXPECT_EQ(second.events, first.events);
}

}  // namespace tavrel::test
