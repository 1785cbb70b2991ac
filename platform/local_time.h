// The platform's clock: local date and time as separate fields. Reading it can't fail. Tests can
// stop it at a time of their own.
#pragma once

#include <cstdint>

namespace tavrel {

/// Local date and time. Fields and widths are those of the platform call's record.
struct SYSTEMTIME {
  std::uint16_t wYear{};          ///< four digits
  std::uint16_t wMonth{};         ///< 1 to 12
  std::uint16_t wDayOfWeek{};     ///< 0 is Sunday
  std::uint16_t wDay{};           ///< 1 to 31
  std::uint16_t wHour{};          ///< 0 to 23
  std::uint16_t wMinute{};        ///< 0 to 59
  std::uint16_t wSecond{};        ///< 0 to 59
  std::uint16_t wMilliseconds{};  ///< 0 to 999
};

/// Sets `time` to the local date and time, or to the time at which the clock is stopped.
void GetLocalTime(SYSTEMTIME* time);

// Not used by the tool; for builds whose outputs don't depend on the time, and for tests.

/// Returns the date and time in UTC, `seconds` after the start of 1970. The year must have four
/// digits.
SYSTEMTIME utcTime(std::int64_t seconds);

/// Makes GetLocalTime return `time` until `restartClock`.
void stopClock(const SYSTEMTIME& time);

/// Makes GetLocalTime read the real clock again.
void restartClock();

}  // namespace tavrel
