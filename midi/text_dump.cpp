#include <array>

#include "foundation/console.h"
#include "midi/dump_format.h"
#include "midi/meta_text.h"
#include "midi/midi_file.h"

namespace tavrel {

std::uint32_t MidiFile::barNumber(const MidiEvent& ev) const {
  const std::uint32_t ticksPerBar = ppqn * 4U;
  return ticksPerBar != 0 ? ev.absoluteTime / ticksPerBar + 1 : 1;
}

const char* MidiFile::timeText(const MidiEvent& ev) {
  std::uint32_t beat = 1;
  std::uint32_t tick = ev.absoluteTime;
  if (ppqn != 0) {
    const std::uint32_t ticksIntoBar = ev.absoluteTime % (ppqn * 4U);
    beat = ticksIntoBar / ppqn + 1;
    tick = ticksIntoBar % ppqn;
  }
  formatInto(timeBuffer_, "%u:%u:%3u", barNumber(ev), beat, tick);
  return timeBuffer_.data();
}

const char* MidiFile::noteName(std::uint8_t note, std::uint8_t octaveBase) {
  constexpr std::array<const char*, 12> kNames{"C",  "C#", "D",  "D#", "E",  "F",
                                               "F#", "G",  "G#", "A",  "A#", "B"};
  const int lowestNote = octaveBase == 1 ? 12 : 24;  // of octave 0
  formatInto(noteBuffer_, "%s%d", kNames[note % kNames.size()], (note - lowestNote) / 12);
  return noteBuffer_.data();
}

void MidiFile::printHeaderInfo() {
  printPiece("\nFormat:\t\t\t\t%u\nNumber of Tracks:\t%u\nPpqn:\t\t\t\t%u\n\n\n", format,
             numberOfTracks, ppqn);
}

void MidiFile::printTimeColumn(const MidiEvent& ev) {
  const bool shortBar = static_cast<std::int16_t>(barNumber(ev)) < 10;
  printPiece("%s%s", timeText(ev), shortBar ? "\t\t\t" : "\t\t");
}

void MidiFile::printEvent(const MidiEvent& ev) {
  printTimeColumn(ev);
  const int channel = ev.channel;
  const std::uint8_t first = payloadByte(ev, 0);
  const std::uint8_t second = payloadByte(ev, 1);
  if (isNoteOn(ev)) {
    printPiece("%-2d Note On  - %-4s             Note #: %-3d Velocity: %-3d\n", channel,
               noteName(first, 0), first, second);
  } else if (isNoteOff(ev)) {
    printPiece("%-2d Note Off - %-4s             Note #: %-3d Velocity: %-3d\n", channel,
               noteName(first, 0), first, second);
  } else if (isController(ev)) {
    printPiece("%-2d CC - %-22s CC#: %-3d    Value: %-3d\n", channel, controllerName(ev), first,
               second);
  } else if (isProgramChange(ev)) {
    printPiece("%-2d Program Change              Number: %-3d\n", channel, first);
  } else if (isPitchWheel(ev)) {
    printPiece("%-2d Pitch Wheel                 msb: %-3d lsb %-3d\n", channel, second, first);
  } else if (isChannelPressure(ev)) {
    printPiece("%-2d Channel Pressure            Pressure: %-3d\n", channel, first);
  } else if (isPolyPressure(ev)) {
    printPiece("%-2d Poly Pressure               Note #: %-3d Pressure: %-3d\n", channel, first,
               second);
  } else if (isSysEx(ev)) {
    printUnterminated(stdout, "SysEx - ");
    printHex(ev);
    printUnterminated(stdout, "\n");
  } else if (isMeta(ev)) {
    printMeta(ev);
  } else {
    printLine(stderr, "TROUBLE!!!!");
  }
}

}  // namespace tavrel
