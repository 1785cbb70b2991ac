// The outline of a line of samples: the lowest and the highest of each bucket, at several zooms.
#pragma once

#include <cstdint>
#include <vector>

#include "kit/frame/json.h"

namespace tavrel::kit {

class Peaks {
 public:
  /// Each zoom has buckets this many times as long as the one before it.
  static constexpr std::uint32_t kZoom = 4;

  /// Returns the length of the finest buckets for a line of `samples` samples. Its outline has
  /// 2,048 buckets or fewer, however long it is.
  static std::uint32_t finestBucket(std::uint32_t samples);

  explicit Peaks(std::uint32_t samples) : bucket_(finestBucket(samples)) {}

  /// Adds the next sample. Values of more than 16 bits are limited to them.
  void add(std::int32_t sample);

  /// Returns the outline of each zoom, the finest first: base 64 of 16-bit little-endian numbers,
  /// the lowest and the highest of each bucket.
  [[nodiscard]] Json asJson() const;

 private:
  struct Range {
    std::int16_t lowest = INT16_MAX;
    std::int16_t highest = INT16_MIN;
    void include(std::int16_t low, std::int16_t high);
  };

  static std::vector<Range> coarser(const std::vector<Range>& ranges);
  static Json encoded(const std::vector<Range>& ranges);

  std::uint32_t bucket_;
  std::uint32_t inBucket_ = 0;
  std::vector<Range> ranges_;
};

}  // namespace tavrel::kit
