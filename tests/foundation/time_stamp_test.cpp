#include "foundation/time_stamp.h"

#include <gtest/gtest.h>

#include <array>
#include <ctime>

namespace tavrel::test {

TEST(TimeStampTest, OnlyHoursAbove12AreAfternoonAndOnlyMinutesArePadded) {
  const std::pair<SYSTEMTIME, const char*> cases[] = {
      {{1999, 7, 4, 22, 13, 5}, "7/22/1999 1:05 pm"},
      {{1999, 3, 4, 4, 12, 5}, "3/4/1999 12:05 am"},
      {{2031, 12, 3, 31, 0, 59}, "12/31/2031 0:59 am"}};
  for (const auto& [time, text] : cases) {
    stopClock(time);
    EXPECT_STREQ(TimeStamp().getDateAndTime(), text);
  }
  restartClock();
  const std::time_t now = std::time(nullptr);
  const std::tm local = *std::localtime(&now);
  SYSTEMTIME clock;
  GetLocalTime(&clock);
  EXPECT_EQ((std::array{clock.wYear - 1900, clock.wMonth - 1, int{clock.wDay}}),
            (std::array{local.tm_year, local.tm_mon, local.tm_mday}));
  EXPECT_NEAR(60 * clock.wHour + clock.wMinute, 60 * local.tm_hour + local.tm_min, 1);
}

}  // namespace tavrel::test
