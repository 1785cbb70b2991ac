// Conversions of SoundConvert between units of pitch, time, gain and size. The digits of the
// constants and the order of the operations determine the last bit of each result.
#include <array>
#include <cmath>

#include "samples/sound_convert.h"

namespace tavrel {

namespace {

constexpr double kCentsPerPitchUnit = 1.52587890625e-05;          // 1 / 65536
constexpr double kUnitsPerFixedTenth = 1.52587890625e-6;          // 1 / 655360
constexpr double kDoublingsPerTimeUnit = 1.2715657552083334e-08;  // 1 / (1200 * 65536)
constexpr double kPercentPer127th = 0.7874015748031495;           // 1 / 1.27; 100 / 127 differs
constexpr std::int32_t kNoTime = 0x8000000;

constexpr std::array<double, 32> kThresholds = {
    47,  38,  31,  27,  24,  19,  15,  13,   12,   9.4,  7.9,  6.8,  6.0,  4.7,  3.8, 3.4,
    3.0, 2.4, 2.0, 1.8, 1.6, 1.3, 1.1, 0.93, 0.85, 0.65, 0.53, 0.44, 0.40, 0.35, 0,   0};
constexpr std::uint16_t kOutsideThresholds = 31;

std::int32_t roundedUp(double value) { return static_cast<std::int32_t>(std::ceil(value)); }

}  // namespace

std::int32_t SoundConvert::centsToSemitones(std::int16_t cents) { return cents / 100; }

double SoundConvert::pitchToHertz(std::int32_t pitch) {
  return 440.0 * std::pow(2.0, (pitch * kCentsPerPitchUnit - 6900.0) * (1.0 / 1200));
}

double SoundConvert::fixedTenthsToDouble(std::int32_t tenths) {
  return tenths * kUnitsPerFixedTenth;
}

std::uint32_t SoundConvert::sampleCount(std::uint32_t size, std::uint16_t bits) {
  switch (bits) {
    case 4:
      return size / 4 * 2;
    case 8:
      return size;
    case 16:
      return size / 2;
    default:
      return 0;
  }
}

std::uint8_t SoundConvert::gainToByte(std::int16_t gain) {
  if (gain > 0) {
    return 0;
  }
  return static_cast<std::uint8_t>(static_cast<std::int32_t>(gain * 2.65625));
}

std::uint16_t SoundConvert::descendingThresholdIndex(double value) {
  for (std::uint16_t i = 0; i + 1U < kThresholds.size(); ++i) {
    if (kThresholds[i + 1U] <= value && value < kThresholds[i]) {
      return static_cast<std::uint16_t>(i == 0 ? 0 : i - 1);
    }
  }
  return kOutsideThresholds;
}

double SoundConvert::timeToMilliseconds(std::int32_t time) {
  return time == kNoTime ? 0.0 : 1000.0 * std::pow(2.0, time * kDoublingsPerTimeUnit);
}

std::int32_t SoundConvert::percentTo127(std::int8_t percent) {
  return roundedUp((percent + 50) * 1.27);
}

std::int32_t SoundConvert::scale127To31(std::int8_t value) {
  return roundedUp(value * kPercentPer127th * 0.31);
}

}  // namespace tavrel
