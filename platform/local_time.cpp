#include "platform/local_time.h"

#include <chrono>
#include <ctime>
#include <optional>

namespace tavrel {

namespace {

std::optional<SYSTEMTIME>& stoppedTime() {
  static std::optional<SYSTEMTIME> time;
  return time;
}

/// Returns the start of a day.
SYSTEMTIME dateOf(std::chrono::sys_days day) {
  const std::chrono::year_month_day date(day);
  SYSTEMTIME time;
  time.wYear = static_cast<std::uint16_t>(static_cast<int>(date.year()));
  time.wMonth = static_cast<std::uint16_t>(static_cast<unsigned>(date.month()));
  time.wDay = static_cast<std::uint16_t>(static_cast<unsigned>(date.day()));
  time.wDayOfWeek = static_cast<std::uint16_t>(std::chrono::weekday(day).c_encoding());
  return time;
}

std::tm brokenDown(std::time_t seconds) {
  std::tm fields{};
#ifdef _WIN32
  localtime_s(&fields, &seconds);
#else
  localtime_r(&seconds, &fields);
#endif
  return fields;
}

}  // namespace

void GetLocalTime(SYSTEMTIME* time) {
  if (stoppedTime()) {
    *time = *stoppedTime();
    return;
  }
  using std::chrono::milliseconds;
  using std::chrono::system_clock;
  const auto now = system_clock::now();
  const auto sinceEpoch = std::chrono::duration_cast<milliseconds>(now.time_since_epoch()).count();
  const std::tm fields = brokenDown(system_clock::to_time_t(now));
  const auto word = [](auto value) { return static_cast<std::uint16_t>(value); };
  time->wYear = word(fields.tm_year + 1900);
  time->wMonth = word(fields.tm_mon + 1);
  time->wDayOfWeek = word(fields.tm_wday);
  time->wDay = word(fields.tm_mday);
  time->wHour = word(fields.tm_hour);
  time->wMinute = word(fields.tm_min);
  time->wSecond = word(fields.tm_sec);
  time->wMilliseconds = word(sinceEpoch % 1000);
}

SYSTEMTIME utcTime(std::int64_t seconds) {
  const std::chrono::sys_seconds whole{std::chrono::seconds(seconds)};
  const auto day = std::chrono::floor<std::chrono::days>(whole);
  const std::chrono::hh_mm_ss sinceMidnight(whole - day);
  SYSTEMTIME time = dateOf(day);
  time.wHour = static_cast<std::uint16_t>(sinceMidnight.hours().count());
  time.wMinute = static_cast<std::uint16_t>(sinceMidnight.minutes().count());
  time.wSecond = static_cast<std::uint16_t>(sinceMidnight.seconds().count());
  return time;
}

void stopClock(const SYSTEMTIME& time) { stoppedTime() = time; }

void restartClock() { stoppedTime().reset(); }

}  // namespace tavrel
