#include "kit/report/peaks.h"

#include <algorithm>

#include "foundation/byte_order.h"
#include "kit/report/base64.h"

namespace tavrel::kit {

namespace {

constexpr std::uint32_t kMostBuckets = 2048;
constexpr std::size_t kFewestBuckets = 256;  // fewer are drawn from these

}  // namespace

std::uint32_t Peaks::finestBucket(std::uint32_t samples) {
  std::uint32_t bucket = 1;
  while (samples / bucket >= kMostBuckets) {
    bucket *= kZoom;
  }
  return bucket;
}

void Peaks::Range::include(std::int16_t low, std::int16_t high) {
  lowest = std::min(lowest, low);
  highest = std::max(highest, high);
}

void Peaks::add(std::int32_t sample) {
  const auto limited =
      static_cast<std::int16_t>(std::clamp<std::int32_t>(sample, INT16_MIN, INT16_MAX));
  if (inBucket_ == 0) {
    ranges_.emplace_back();
  }
  ranges_.back().include(limited, limited);
  inBucket_ = (inBucket_ + 1) % bucket_;
}

Json Peaks::asJson() const {
  Json zooms = Json::array({encoded(ranges_)});
  std::vector<Range> ranges = ranges_;
  while (ranges.size() > kFewestBuckets) {
    ranges = coarser(ranges);
    zooms.push_back(encoded(ranges));
  }
  return zooms;
}

std::vector<Peaks::Range> Peaks::coarser(const std::vector<Range>& ranges) {
  std::vector<Range> result((ranges.size() + kZoom - 1) / kZoom);
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    result[i / kZoom].include(ranges[i].lowest, ranges[i].highest);
  }
  return result;
}

Json Peaks::encoded(const std::vector<Range>& ranges) {
  std::vector<std::uint8_t> bytes(4 * ranges.size());
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    storeLittle16(&bytes[4 * i], static_cast<std::uint16_t>(ranges[i].lowest));
    storeLittle16(&bytes[4 * i + 2], static_cast<std::uint16_t>(ranges[i].highest));
  }
  return base64(bytes.data(), bytes.size());
}

}  // namespace tavrel::kit
