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

void stopClock(const SYSTEMTIME& time) { stoppedTime() = time; }

void restartClock() { stoppedTime().reset(); }

}  // namespace tavrel
