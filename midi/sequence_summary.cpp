#include "midi/sequence_summary.h"

#include <algorithm>

#include "midi/sequence_clock.h"
#include "midi/sounding_notes.h"

namespace tavrel {

bool summarize(MidiFile& file, SequenceSummary& summary) {
  SequenceClock clock(file.ppqn);
  SoundingNotes notes;
  std::uint32_t polyphony = 0;
  HeldEvent ev;
  file.rewind();
  file.runningStatus = 0;
  while (file.getNextEvent(ev)) {
    clock.advance(ev.deltaTime);
    if (isNoteOn(ev)) {
      notes.start(ev);
      polyphony = std::max(polyphony, notes.total());
    } else if (isNoteOff(ev)) {
      notes.stop(ev);
    } else if (isMetaType(ev, kMetaTempo)) {
      clock.setTempo(ev);
    } else if (isMetaType(ev, kMetaEndOfTrack)) {
      summary = {ev.sequence, polyphony, clock.seconds()};
      return true;
    }
    clearEvent(ev);
  }
  return false;
}

}  // namespace tavrel
