// Table of the notes that are sounding at one point of a track. Notes with the same number and
// channel are interchangeable, so the table counts them, and each event takes constant time.
#pragma once

#include <array>
#include <cstdint>

#include "midi/midi_event.h"

namespace tavrel {

class SoundingNotes {
 public:
  void start(const MidiEvent& noteOn) {
    ++notesLike(noteOn);
    ++total_;
  }

  /// Ends one note with the number and channel of `noteOff`. Returns false if none is sounding.
  bool stop(const MidiEvent& noteOff) {
    if (notesLike(noteOff) == 0) {
      return false;
    }
    --notesLike(noteOff);
    --total_;
    return true;
  }

  [[nodiscard]] std::uint32_t total() const { return total_; }

 private:
  std::uint32_t& notesLike(const MidiEvent& ev) {
    return counts_[ev.statusLow][payloadByte(ev, 0)];
  }

  std::array<std::array<std::uint32_t, 256>, 16> counts_{};  // by channel and note number
  std::uint32_t total_ = 0;
};

}  // namespace tavrel
