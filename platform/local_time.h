// The platform's clock: local date and time, broken down into fields.
// GetLocalTime cannot fail; a test may stop the clock at a time of its own.
#pragma once

#include <cstdint>

namespace tavrel {

/// Local date and time. Fields and widths are those of the platform call's record.
struct SYSTEMTIME {
  std::uint16_t wYear = 0;          ///< four digits
  std::uint16_t wMonth = 0;         ///< 1 to 12
  std::uint16_t wDayOfWeek = 0;     ///< 0 is Sunday
  std::uint16_t wDay = 0;           ///< 1 to 31
  std::uint16_t wHour = 0;          ///< 0 to 23
  std::uint16_t wMinute = 0;        ///< 0 to 59
  std::uint16_t wSecond = 0;        ///< 0 to 59
  std::uint16_t wMilliseconds = 0;  ///< 0 to 999
};

/// Fills `time` with the local date and time, or with the time that a test has set.
void GetLocalTime(SYSTEMTIME* time);

/// Stops the clock: GetLocalTime gives `time` from now on.
void stopClock(const SYSTEMTIME& time);

/// Lets GetLocalTime read the real clock again.
void restartClock();

}  // namespace tavrel
