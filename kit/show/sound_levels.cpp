#include "kit/show/sound_levels.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "foundation/byte_order.h"
#include "kit/frame/display_text.h"
#include "kit/frame/text_table.h"

namespace tavrel::kit {

namespace {

/// Returns a sample with its top bit moved to that of 32 bits.
std::int32_t sampleAt(const std::uint8_t* bytes, std::uint16_t bits) {
  switch (bits) {
    case 8:
      return static_cast<std::int32_t>((*bytes ^ 0x80U) << 24U);
    case 16:
      return static_cast<std::int32_t>(std::uint32_t{loadLittle16(bytes)} << 16U);
    case 24:
      return static_cast<std::int32_t>(loadLittle24(bytes) << 8U);
    default:
      return static_cast<std::int32_t>(loadLittle32(bytes));
  }
}

/// Returns the levels of the channel whose first sample is at `first`.
ChannelLevels channelLevels(const LoadedSound& sound, std::size_t first, std::size_t samples,
                            std::size_t channels) {
  constexpr double kFullScale = 2147483648.0;
  const std::size_t width = sound.bits / 8U;
  ChannelLevels levels;
  double sum = 0;
  double squares = 0;
  double count = 0;
  for (std::size_t i = first; i < samples; i += channels) {
    const double sample = sampleAt(sound.bytes + i * width, sound.bits) / kFullScale;
    levels.peak = std::max(levels.peak, std::abs(sample));
    sum += sample;
    squares += sample * sample;
    ++count;
  }
  levels.rms = std::sqrt(squares / count);
  levels.offset = sum / count;
  return levels;
}

/// Returns a number with some decimals, and 0 without a sign.
std::string rounded(double number, int decimals) {
  const double unit = std::pow(10.0, decimals);
  return fmt::format("{:.{}f}", std::round(number * unit) / unit + 0.0, decimals);
}

std::string decibels(double ratio) { return rounded(20 * std::log10(ratio), 2); }

}  // namespace

std::vector<ChannelLevels> levelsOf(const LoadedSound& sound) {
  std::vector<ChannelLevels> levels;
  if (sound.bits != 8 && sound.bits != 16 && sound.bits != 24 && sound.bits != 32) {
    return levels;
  }
  const std::size_t samples = sound.size / (sound.bits / 8U);
  const std::size_t channels = std::max<std::size_t>(sound.channels, 1);
  for (std::size_t channel = 0; channel < std::min(channels, samples); ++channel) {
    levels.push_back(channelLevels(sound, channel, samples, channels));
  }
  return levels;
}

std::string levelsText(const LoadedSound& sound) {
  TextTable table({{"channel", Alignment::right},
                   {"peak dBFS", Alignment::right},
                   {"RMS dBFS", Alignment::right},
                   {"DC offset %", Alignment::right}});
  const std::vector<ChannelLevels> channels = levelsOf(sound);
  for (std::size_t i = 0; i < channels.size(); ++i) {
    table.add({std::to_string(i + 1), decibels(channels[i].peak), decibels(channels[i].rms),
               rounded(channels[i].offset * 100, 3)});
  }
  return channels.empty() ? "" : '\n' + table.text();
}

std::string formatText(const std::string& encoding, const LoadedSound& sound,
                       std::uint64_t frames) {
  const std::string length =
      sound.rate == 0 ? "" : ", " + durationText(static_cast<double>(frames) / sound.rate);
  return fmt::format("\nformat: {}, {}, {} Hz, {}, {}{}\n", encoding,
                     countText(sound.channels, "channel"), sound.rate, countText(sound.bits, "bit"),
                     countText(frames, "frame"), length);
}

}  // namespace tavrel::kit
