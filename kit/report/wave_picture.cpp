#include "kit/report/wave_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "foundation/byte_order.h"
#include "kit/report/peaks.h"

namespace tavrel::kit {

namespace {

/// Calls `use(position, sample)` for each sample of a wave.
template <typename Use>
void forEachSample(const tavrel_wave& wave, Use use) {
  std::array<std::int16_t, 4096> samples{};
  tavrel_adpcm state;
  tavrel_adpcm_start(&state);
  for (std::uint32_t position = 0; position < wave.sample_count;) {
    const std::uint32_t count =
        tavrel_wave_read(&wave, &state, position, samples.data(), samples.size());
    for (std::uint32_t i = 0; i < count; ++i) {
      use(position + i, samples[i]);
    }
    position += count;
  }
}

/// How loud a wave is, on a scale where the lowest sample is -1.
class Levels {
 public:
  explicit Levels(std::int32_t bits) : highest_(bits == 8 ? INT8_MAX * 256 : INT16_MAX) {}

  void add(std::int32_t sample) {
    peak_ = std::max(peak_, std::abs(sample));
    squares_ += static_cast<double>(sample) * sample;
    clipped_ += sample == INT16_MIN || sample == highest_ ? 1 : 0;
    ++count_;
  }

  void put(Json& json) const {
    constexpr double kFullScale = 32768;
    json["peak"] = rounded(peak_ / kFullScale, 6);
    json["rms"] = rounded(std::sqrt(squares_ / std::max(count_, 1U)) / kFullScale, 6);
    json["clipped"] = clipped_;
  }

 private:
  std::int32_t highest_;
  std::int32_t peak_ = 0;
  double squares_ = 0;
  std::uint32_t clipped_ = 0;
  std::uint32_t count_ = 0;
};

/// The samples on both sides of the jump from the end of a loop to its start.
class Seam {
 public:
  explicit Seam(const tavrel_wave& wave)
      : start_(wave.loop_start),
        end_(wave.loop_end),
        isValid_(wave.loops != 0 && start_ < end_ && end_ <= wave.sample_count) {}

  void add(std::uint32_t position, std::int16_t sample) {
    if (!isValid_ || position < start_ || position >= end_) {
      return;
    }
    if (position - start_ < kLength) {
      after_.push_back(sample);
    }
    if (end_ - position <= kLength) {
      before_.push_back(sample);
    }
  }

  [[nodiscard]] Json asJson() const {
    return isValid_ ? Json{{"before", before_}, {"after", after_}} : Json(nullptr);
  }

 private:
  static constexpr std::uint32_t kLength = 48;

  std::uint32_t start_;
  std::uint32_t end_;
  bool isValid_;
  std::vector<std::int16_t> before_;
  std::vector<std::int16_t> after_;
};

/// The samples of a source and the error of what is decoded, which has fill after the last one.
class SourcePeaks {
 public:
  explicit SourcePeaks(const SourceSound& source)
      : bytes_(source.samples), count_(source.size / 4 * 2), source_(count_), error_(count_) {}

  void add(std::uint32_t position, std::int16_t decoded) {
    if (position < count_) {
      const auto sample =
          static_cast<std::int16_t>(loadLittle16(bytes_ + std::size_t{2} * position));
      source_.add(sample);
      error_.add(decoded - sample);
    }
  }

  void put(Json& json) const {
    json["sourceSamples"] = count_;
    json["sourceBucket"] = Peaks::finestBucket(count_);
    json["sourcePeaks"] = source_.asJson();
    json["errorPeaks"] = error_.asJson();
  }

 private:
  const std::uint8_t* bytes_;
  std::uint32_t count_;
  Peaks source_;
  Peaks error_;
};

}  // namespace

Json wavePicture(const tavrel_wave& wave, const SourceSound& source) {
  Levels levels(wave.bits);
  Peaks peaks(wave.sample_count);
  Seam seam(wave);
  SourcePeaks sourcePeaks(source);
  forEachSample(wave, [&](std::uint32_t position, std::int16_t sample) {
    levels.add(sample);
    peaks.add(sample);
    seam.add(position, sample);
    sourcePeaks.add(position, sample);
  });
  Json json = Json::object();
  levels.put(json);
  json["bucket"] = Peaks::finestBucket(wave.sample_count);
  json["peaks"] = peaks.asJson();
  json["seam"] = seam.asJson();
  if (source.samples != nullptr) {
    sourcePeaks.put(json);
  }
  return json;
}

}  // namespace tavrel::kit
