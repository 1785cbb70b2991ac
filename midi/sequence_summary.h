// What one walk through a sequence finds out about it: for programs that list sequences. Prints
// nothing.
#pragma once

#include <cstdint>
#include <optional>

#include "midi/midi_file.h"

namespace tavrel {

struct SequenceSummary {
  std::uint32_t events = 0;       ///< up to the end-of-track event, which counts too
  std::uint32_t polyphony = 0;    ///< the result of `countPolyphony`, in 32 bits
  std::optional<double> seconds;  ///< up to the end of the track; none if a tick has no length
};

/// Reads the track from its start to its end-of-track event, moving the cursor. Returns false,
/// without changing `summary`, if the track breaks off before that or memory runs out. `file` must
/// have read its two chunk headers.
///
/// The division (`ppqn`) sets the length of a tick:
///
/// | division     | a tick is                                                                    |
/// |--------------|------------------------------------------------------------------------------|
/// | 1 to 32,767  | that part of a quarter note, whose length the tempo events set; it is        |
/// |              | 500,000 microseconds before the first one                                    |
/// | top bit set  | a part of a frame: the low byte is the number of ticks per frame, the high   |
/// |              | byte the negative number of frames per second; 29 means 29.97                |
/// | no ticks     | without length                                                               |
bool summarize(MidiFile& file, SequenceSummary& summary);

}  // namespace tavrel
