#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "tests/support/loaded_midi.h"

namespace tavrel::test {
namespace {

TEST(TempoQueriesTest, TheFirstTempoBeforeTheEndOfTheFirstTrackCountsInAllItsForms) {
  const Events tempo = events().tempo(0, 500000).endOfTrack();
  const struct {
    std::string content;
    std::uint32_t eventsRead;
    bool found;
    std::uint32_t microseconds, milliseconds;
    float beatsPerMinute;
  } cases[] = {
      {midi().track(tempo), 1, true, 500000, 500, 120.0F},
      {midi().track(events().tempo(9, 1500000).tempo(0, 1)), 1, true, 1500000, 1500, 40.0F},
      {midi().track(events().note(0, 1, 60, 9).tempo(5000, 1)), 2, true, 1, 0, 60000000.0F},
      {midi().track(events().tempo(0, 0xFFFFFF)), 1, true, 16777215, 16777, 60.0F / 16.777215F},
      {midi().track(events().meta(0, 0x51, "\x12\xD6\x87\x09")), 1, true, 1234567, 1234,
       60.0F / 1.234567F},
      {midi().track(events().tempo(0, 0)), 1, true, 0, 0, std::numeric_limits<float>::infinity()},
      {midi().format(1).track(events().endOfTrack()).track(tempo), 1, false, 7, 7, 7.0F},
      {midi().track(events().note(0, 1, 60, 100)), 1, false, 7, 7, 7.0F},
      {midi().track(events()), 0, false, 7, 7, 7.0F},
      {midi().track(events().meta(0, 0x51, "\x07\xA1").append(tempo)), 1, false, 7, 7, 7.0F},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(testing::PrintToString(c.content));
    LoadedMidi loaded(c.content);
    std::uint32_t microseconds = 7;
    std::uint32_t milliseconds = 7;
    float beatsPerMinute = 7;
    testing::internal::CaptureStderr();
    EXPECT_EQ(loaded.file.firstTempoMs(milliseconds), c.found);
    EXPECT_EQ(loaded.file.firstTempoBpm(beatsPerMinute), c.found);
    EXPECT_EQ(loaded.file.firstTempo(microseconds), c.found);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    EXPECT_EQ(microseconds, c.microseconds);
    EXPECT_EQ(milliseconds, c.milliseconds);
    EXPECT_FLOAT_EQ(beatsPerMinute, c.beatsPerMinute);
    EXPECT_EQ(loaded.file.eventCount, c.eventsRead);
  }
}

}  // namespace
}  // namespace tavrel::test
