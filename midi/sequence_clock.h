// How long a sequence takes: its ticks as seconds. sequence_summary.h describes the division.
#pragma once

#include <cstdint>
#include <optional>

#include "midi/midi_event.h"

namespace tavrel {

/// Adds up delta times. A tick is a part of a quarter note, whose length the tempo sets, or of a
/// SMPTE frame. Nothing fails.
class SequenceClock {
 public:
  explicit SequenceClock(std::uint16_t division)
      : framesPerSecond_(-static_cast<std::int8_t>(division >> 8U)),
        ticksPerUnit_(countsFrames() ? division & 0xFFU : division),
        secondsPerUnit_(countsFrames() ? secondsPerFrame() : 0.5) {}

  /// A tempo event with fewer than three bytes is ignored, and so is any if ticks divide frames.
  void setTempo(const MidiEvent& ev) {
    if (!countsFrames() && ev.dataLength >= 3) {
      secondsPerUnit_ = tempoOf(ev) / 1e6;
    }
  }

  /// Adds the delta time of the next event.
  void advance(std::uint32_t ticks) {
    if (ticksPerUnit_ != 0) {
      seconds_ += ticks * secondsPerUnit_ / ticksPerUnit_;
    }
  }

  /// Returns the time so far, or nothing if ticks have no length.
  [[nodiscard]] std::optional<double> seconds() const {
    return ticksPerUnit_ != 0 ? std::optional(seconds_) : std::nullopt;
  }

 private:
  [[nodiscard]] bool countsFrames() const { return framesPerSecond_ > 0; }
  [[nodiscard]] double secondsPerFrame() const {
    return framesPerSecond_ == 29 ? 1001.0 / 30000 : 1.0 / framesPerSecond_;
  }

  int framesPerSecond_;  // not positive if ticks divide quarter notes
  std::uint32_t ticksPerUnit_;
  double secondsPerUnit_;
  double seconds_ = 0;
};

}  // namespace tavrel
