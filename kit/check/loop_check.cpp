#include "kit/check/loop_check.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "foundation/byte_order.h"

namespace tavrel::kit {

namespace {

constexpr int kQuietJump = 1000;  // of 32768
constexpr int kLoudRatio = 4;

/// Steps of one channel of a loop, on the scale of 16 bits.
struct Steps {
  int wrap = 0;     ///< from the last frame to the first
  int largest = 0;  ///< between two frames inside
};

struct Samples8 {
  const std::uint8_t* bytes;
  int operator[](std::size_t index) const { return (bytes[index] - 128) * 256; }
};

struct Samples16 {
  const std::uint8_t* bytes;
  int operator[](std::size_t index) const {
    return static_cast<std::int16_t>(loadLittle16(bytes + 2 * index));
  }
};

/// Returns the steps of a channel, whose first sample in the loop is at `first`.
template <typename Samples>
Steps stepsOf(Samples samples, std::size_t first, std::size_t frames, std::size_t channels) {
  Steps steps;
  int last = samples[first];
  for (std::size_t frame = 1; frame < frames; ++frame) {
    const int next = samples[first + frame * channels];
    steps.largest = std::max(steps.largest, std::abs(next - last));
    last = next;
  }
  steps.wrap = std::abs(samples[first] - last);
  return steps;
}

bool isClick(const Steps& steps) {
  return steps.wrap > kQuietJump && steps.wrap > kLoudRatio * steps.largest;
}

template <typename Samples>
std::optional<Steps> findClick(Samples samples, const LoadedSound& sound) {
  const std::size_t channels = std::max<std::size_t>(sound.channels, 1);
  const std::size_t frames = (sound.loopEnd - sound.loopStart) / channels;
  for (std::size_t channel = 0; channel < channels && frames > 0; ++channel) {
    const Steps steps = stepsOf(samples, sound.loopStart + channel, frames, channels);
    if (isClick(steps)) {
      return steps;
    }
  }
  return std::nullopt;
}

}  // namespace

void checkWrap(const LoadedSound& sound, BlockFindings& findings) {
  std::optional<Steps> click;
  if (sound.bits == 16) {
    click = findClick(Samples16{sound.bytes}, sound);
  } else if (sound.bits == 8) {
    click = findClick(Samples8{sound.bytes}, sound);
  }
  if (click.has_value()) {
    findings.addAtOption(
        "loop-click", waveLoop,
        fmt::format("the loop jumps by {} of 32768 where it wraps, and by {} at most inside",
                    click->wrap, click->largest),
        "Move the loop's points in a sound editor, or crossfade them");
  }
}

}  // namespace tavrel::kit
