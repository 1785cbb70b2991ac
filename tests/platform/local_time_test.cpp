#include "platform/local_time.h"

#include <gmock/gmock.h>

#include <chrono>
#include <ctime>

namespace tavrel::test {

std::int64_t millisecondsNow() {
  const auto sinceEpoch = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::duration_cast<std::chrono::milliseconds>(sinceEpoch).count();
}

TEST(LocalTime, IsThatOfTheHost) {
  SYSTEMTIME clock{};
  stopClock({1999, 7, 4, 22, 13, 5, 6, 2000});
  restartClock();
  const std::time_t before = std::time(nullptr);
  GetLocalTime(&clock);
  std::tm fields{};
  fields.tm_isdst = -1;
  fields.tm_year = clock.wYear - 1900;
  fields.tm_mon = clock.wMonth - 1;
  fields.tm_mday = clock.wDay;
  fields.tm_hour = clock.wHour;
  fields.tm_min = clock.wMinute;
  fields.tm_sec = clock.wSecond;
  EXPECT_GE(std::mktime(&fields), before);
  // The C library's clock may be some milliseconds late.
  EXPECT_LE(std::mktime(&fields), std::time(nullptr) + 1);
  EXPECT_EQ(clock.wDayOfWeek, fields.tm_wday);
  std::int64_t now = 0;
  do {
    now = millisecondsNow();
    GetLocalTime(&clock);
  } while (millisecondsNow() != now);
  EXPECT_EQ(clock.wMilliseconds, now % 1000);
}

TEST(UtcTime, IsThatOfTheSecond) {
  const SYSTEMTIME clock = utcTime(951782400 + 59);
  const int fields[] = {clock.wYear, clock.wMonth,  clock.wDayOfWeek, clock.wDay,
                        clock.wHour, clock.wMinute, clock.wSecond,    clock.wMilliseconds};
  EXPECT_THAT(fields, testing::ElementsAre(2000, 2, 2, 29, 0, 0, 59, 0));
}

}  // namespace tavrel::test
