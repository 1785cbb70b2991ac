// The time that a build puts into its outputs.
#pragma once

namespace tavrel::kit {

/// While it exists, generated files have the time of SOURCE_DATE_EPOCH, which is in seconds since
/// the start of 1970, in UTC; without this variable, or if it is empty, the time of the clock.
/// Format: https://reproducible-builds.org/specs/source-date-epoch/
class BuildTime {
 public:
  /// Throws Failure for what is no number of seconds up to the end of the year 9999.
  BuildTime();
  ~BuildTime();
  BuildTime(const BuildTime&) = delete;
  BuildTime(BuildTime&&) = delete;
  BuildTime& operator=(const BuildTime&) = delete;
  BuildTime& operator=(BuildTime&&) = delete;
};

}  // namespace tavrel::kit
