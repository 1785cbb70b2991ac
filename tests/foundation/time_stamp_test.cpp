#include "foundation/time_stamp.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(TimeStampTest, OnlyHoursAbove12AreAfternoonAndOnlyMinutesArePadded) {
  const struct {
    SYSTEMTIME clock;
    const char* text;
  } rows[] = {{{1999, 7, 4, 22, 13, 5}, "7/22/1999 1:05 pm"},
              {{1999, 3, 4, 4, 12, 5}, "3/4/1999 12:05 am"},
              {{2031, 12, 3, 31, 0, 59}, "12/31/2031 0:59 am"}};
  for (const auto& row : rows) {
    stopClock(row.clock);
    EXPECT_STREQ(TimeStamp().getDateAndTime(), row.text);
  }
  restartClock();
}

}  // namespace tavrel::test
