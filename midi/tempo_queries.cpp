#include "midi/midi_file.h"

namespace tavrel {

bool MidiFile::firstTempo(std::uint32_t& microsecondsPerQuarter) {
  constexpr std::uint32_t kTempoBytes = 3;
  rewind();
  HeldEvent ev;
  while (getNextEvent(ev) && !isMetaType(ev, kMetaEndOfTrack)) {
    if (isMetaType(ev, kMetaTempo)) {
      if (ev.dataLength < kTempoBytes) {
        return false;
      }
      microsecondsPerQuarter = tempoOf(ev);
      return true;
    }
    clearEvent(ev);
  }
  return false;
}

bool MidiFile::firstTempoBpm(float& beatsPerMinute) {
  std::uint32_t microseconds = 0;
  if (!firstTempo(microseconds)) {
    return false;
  }
  // Single-precision constants in double-precision arithmetic: the result depends on both.
  beatsPerMinute = static_cast<float>(double{60.0F} / (microseconds * double{0.000001F}));
  return true;
}

bool MidiFile::firstTempoMs(std::uint32_t& milliseconds) {
  std::uint32_t microseconds = 0;
  if (!firstTempo(microseconds)) {
    return false;
  }
  milliseconds = microseconds / 1000;
  return true;
}

}  // namespace tavrel
