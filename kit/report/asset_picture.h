// What the page has of one asset beside its line in the list.
#pragma once

#include <cstdint>

#include "kit/report/report_data.h"

namespace tavrel::kit {

/// How many bytes of waves may still go into the page.
class AudioBudget {
 public:
  explicit AudioBudget(std::uint64_t bytes) : left_(bytes) {}

  /// Returns true if `bytes` more fit, and takes them.
  bool take(std::uint64_t bytes) {
    const bool fits = bytes <= left_;
    left_ -= fits ? bytes : 0;
    return fits;
  }

 private:
  std::uint64_t left_;
};

/// Returns the picture of a wave or a sequence, and the first bytes of everything else. Throws
/// Failure if a file can't be read.
Json assetPicture(ReportData& data, std::uint32_t id, AudioBudget& budget);

}  // namespace tavrel::kit
