#include "platform/local_time.h"

#include <gtest/gtest.h>

#include <ctime>

namespace tavrel::test {

TEST(LocalTimeTest, GivesTheLocalTimeInTheFieldsOfTheRecord) {
  const std::time_t before = std::time(nullptr);
  SYSTEMTIME time;
  GetLocalTime(&time);
  std::tm fields = *std::localtime(&before);
  fields.tm_year = time.wYear - 1900;
  fields.tm_mon = time.wMonth - 1;
  fields.tm_mday = time.wDay;
  fields.tm_hour = time.wHour;
  fields.tm_min = time.wMinute;
  fields.tm_sec = time.wSecond;
  const std::time_t given = std::mktime(&fields);
  EXPECT_TRUE(before <= given && given <= std::time(nullptr));
  EXPECT_TRUE(time.wDayOfWeek == fields.tm_wday && time.wMilliseconds < 1000);
}

}  // namespace tavrel::test
