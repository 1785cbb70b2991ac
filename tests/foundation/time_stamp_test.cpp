#include "foundation/time_stamp.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrel::test {

TEST(TimeStampTest, OnlyHoursAbove12AreAfternoonAndOnlyMinutesArePadded) {
  const struct {
    SYSTEMTIME time;
    const char* text;
  } cases[] = {
      {{1999, 7, 4, 22, 13, 5}, "7/22/1999 1:05 pm"},
      {{1999, 3, 4, 4, 12, 5}, "3/4/1999 12:05 am"},
      {{2031, 12, 3, 31, 0, 5}, "12/31/2031 0:05 am"},
      {{2000, 1, 6, 1, 23, 59}, "1/1/2000 11:59 pm"},
  };
  for (const auto& c : cases) {
    stopClock(c.time);
    TimeStamp stamp;
    const std::string date = stamp.getDateText();
    EXPECT_EQ(date + " " + stamp.getTimeText(), c.text);
    EXPECT_STREQ(stamp.getDateAndTime(), c.text);
  }
  restartClock();
}

}  // namespace tavrel::test
