// Text of a meta event in the dump of a MIDI file.
#pragma once

#include "midi/midi_event.h"

namespace tavrel {

/// Prints the label and the payload of a meta event as the rest of a line on standard output. The
/// line of an unknown type is left unterminated.
void printMeta(const MidiEvent& ev);

}  // namespace tavrel
