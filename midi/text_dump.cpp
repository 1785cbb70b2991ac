#include <algorithm>
#include <array>
#include <cmath>
#include <cstdarg>
#include <cstdio>
#include <span>
#include <string_view>

#include "foundation/console.h"
#include "midi/controller_names.h"
#include "midi/midi_file.h"

namespace tavrel {

namespace {

/// Fills `text`, which is as long as the longest result.
[[gnu::format(printf, 2, 3)]] void formatInto(std::span<char> text, const char* format, ...) {
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text.data(), text.size(), format, arguments);
  va_end(arguments);
}

/// Prints one formatted piece of a line; none of ours is longer than the buffer.
[[gnu::format(printf, 1, 2)]] void printFormatted(const char* format, ...) {
  std::array<char, 160> text{};
  std::va_list arguments;
  va_start(arguments, format);
  std::vsnprintf(text.data(), text.size(), format, arguments);
  va_end(arguments);
  printUnterminated(stdout, text.data());
}

void printSequenceNumber(const MidiEvent& ev) { printFormatted("%d", payloadByte(ev, 0)); }

void printNothing(const MidiEvent& /*ev*/) {}

/// How the meta events of one type are printed.
struct MetaText {
  std::uint32_t type;
  const char* label;
  void (*printPayload)(const MidiEvent& ev);
};

constexpr std::array<MetaText, 15> kMetaTexts{{
    {0x00, " SequenceNumber: ", printSequenceNumber},
    {0x01, " Text - ", printText},
    {0x02, " CopyrightNotice - ", printText},
    {0x03, " TrackName - ", printText},
    {0x04, " InstrumentName - ", printText},
    {0x05, " LyricText - ", printText},
    {0x06, " Marker - ", printText},
    {0x07, " CuePoint - ", printText},
    {0x20, " ChannelPrefix", printNothing},
    {kEndOfTrack, " EndOfTrack", printNothing},
    {kTempo, " Tempo - ", printBpm},
    {0x54, " SmpteOffset - ", printSmpteOffset},
    {0x58, " TimeSignature - ", printTimeSignature},
    {0x59, " KeySignature - ", printKeySignature},
    {0x7F, " SequencerSpecific - ", printHex},
}};

/// A type that the table doesn't have leaves the line open.
void printMeta(const MidiEvent& ev) {
  printUnterminated(stdout, "Meta  - ");
  for (const MetaText& text : kMetaTexts) {
    if (text.type == ev.metaType) {
      printUnterminated(stdout, text.label);
      text.printPayload(ev);
      printUnterminated(stdout, "\n");
    }
  }
}

/// The bits of a mask that select events by their kind.
struct KindFilter {
  std::uint32_t bit;
  bool (*matches)(const MidiEvent& ev);
};

constexpr std::uint32_t kAllControllers = 0x008;

constexpr std::array<KindFilter, 9> kKindFilters{{
    {0x001, isNoteOn},
    {0x002, isNoteOff},
    {0x004, isPolyPressure},
    {kAllControllers, isController},
    {0x010, isProgramChange},
    {0x020, isChannelPressure},
    {0x040, isPitchWheel},
    {0x080, isSysEx},
    {0x100, isMeta},
}};

/// The bits that select single controllers.
struct ControllerFilter {
  std::uint32_t bit;
  std::uint8_t number;
};

constexpr std::uint32_t kBankSelectLsb = 0x200;

constexpr std::array<ControllerFilter, 3> kControllerFilters{{
    {kBankSelectLsb, 32},
    {0x400, 7},
    {0x800, 10},
}};

bool isSelected(const MidiEvent& ev, std::uint32_t mask) {
  if ((mask & kBankSelectLsb) != 0) {
    mask &= ~kAllControllers;  // that bit narrows the controllers down
  }
  const bool kindSelected = std::ranges::any_of(kKindFilters, [&](const KindFilter& filter) {
    return (mask & filter.bit) != 0 && filter.matches(ev);
  });
  return kindSelected ||
         std::ranges::any_of(kControllerFilters, [&](const ControllerFilter& filter) {
           return (mask & filter.bit) != 0 && isControllerNumber(ev, filter.number);
         });
}

}  // namespace

const char* controllerName(const MidiEvent& ev) {
  const std::uint8_t number = payloadByte(ev, 0);
  return number < controllerNames.size() ? controllerNames[number].data() : "Undefined";
}

void printText(const MidiEvent& ev) {
  if (ev.data != nullptr) {
    printUnterminated(stdout,
                      std::string_view(reinterpret_cast<const char*>(ev.data), ev.dataLength));
  }
}

void printHex(const MidiEvent& ev) {
  for (std::uint32_t i = 0; i < ev.dataLength; ++i) {
    printFormatted("0x%.02x, ", payloadByte(ev, i));
  }
}

void printTimeSignature(const MidiEvent& ev) {
  // A denominator beyond 16 bits keeps its low 16 bits.
  const double denominator = std::fmod(std::pow(2.0, payloadByte(ev, 1)), 65536.0);
  const auto cut = static_cast<std::int16_t>(static_cast<std::uint16_t>(denominator));
  printFormatted("%d/%d Time, Midi ppqn: %d 32'nds pqn: %d", payloadByte(ev, 0), cut,
                 payloadByte(ev, 2), payloadByte(ev, 3));
}

void printSmpteOffset(const MidiEvent& ev) {
  printFormatted("%d:%d:%d:%d.%d", payloadByte(ev, 0), payloadByte(ev, 1), payloadByte(ev, 2),
                 payloadByte(ev, 3), payloadByte(ev, 4));
}

void printBpm(const MidiEvent& ev) {
  // The single-precision constant isn't exactly a thousandth, and the output shows it.
  const std::uint32_t milliseconds = tempoOf(ev) / 1000;
  const double secondsPerQuarter = milliseconds * double{0.001F};
  if (secondsPerQuarter != 0) {
    printFormatted("Bpm: %f", 60 / secondsPerQuarter);
  }
}

void printKeySignature(const MidiEvent& ev) {
  const auto accidentals = static_cast<std::int8_t>(payloadByte(ev, 0));
  const char* mode = payloadByte(ev, 1) != 0 ? "Minor" : "Major";
  if (accidentals < 0) {
    printFormatted("%d Flat(s) %s", accidentals, mode);
  } else if (accidentals > 0) {
    printFormatted("%d Sharps(s) %s", accidentals, mode);
  } else {
    printFormatted("Key of C %s", mode);
  }
}

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
  formatInto(timeBuffer, "%u:%u:%3u", barNumber(ev), beat, tick);
  return timeBuffer.data();
}

const char* MidiFile::noteName(std::uint8_t note, std::uint8_t octaveBase) {
  constexpr std::array<const char*, 12> kNames{"C",  "C#", "D",  "D#", "E",  "F",
                                               "F#", "G",  "G#", "A",  "A#", "B"};
  const int lowestNote = octaveBase == 1 ? 12 : 24;  // of octave 0
  formatInto(noteBuffer, "%s%d", kNames[note % kNames.size()], (note - lowestNote) / 12);
  return noteBuffer.data();
}

void MidiFile::printHeaderInfo() {
  printFormatted("\nFormat:\t\t\t\t%u\nNumber of Tracks:\t%u\nPpqn:\t\t\t\t%u\n\n\n", format,
                 numberOfTracks, ppqn);
}

void MidiFile::printTimeColumn(const MidiEvent& ev) {
  const bool shortBar = static_cast<std::int16_t>(barNumber(ev)) < 10;
  printFormatted("%s%s", timeText(ev), shortBar ? "\t\t\t" : "\t\t");
}

void MidiFile::printEvent(const MidiEvent& ev) {
  printTimeColumn(ev);
  const int channel = ev.channel;
  const std::uint8_t first = payloadByte(ev, 0);
  const std::uint8_t second = payloadByte(ev, 1);
  if (isNoteOn(ev)) {
    printFormatted("%-2d Note On  - %-4s             Note #: %-3d Velocity: %-3d\n", channel,
                   noteName(first, 0), first, second);
  } else if (isNoteOff(ev)) {
    printFormatted("%-2d Note Off - %-4s             Note #: %-3d Velocity: %-3d\n", channel,
                   noteName(first, 0), first, second);
  } else if (isController(ev)) {
    printFormatted("%-2d CC - %-22s CC#: %-3d    Value: %-3d\n", channel, controllerName(ev), first,
                   second);
  } else if (isProgramChange(ev)) {
    printFormatted("%-2d Program Change              Number: %-3d\n", channel, first);
  } else if (isPitchWheel(ev)) {
    printFormatted("%-2d Pitch Wheel                 msb: %-3d lsb %-3d\n", channel, second, first);
  } else if (isChannelPressure(ev)) {
    printFormatted("%-2d Channel Pressure            Pressure: %-3d\n", channel, first);
  } else if (isPolyPressure(ev)) {
    printFormatted("%-2d Poly Pressure               Note #: %-3d Pressure: %-3d\n", channel, first,
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

void MidiFile::printEventFiltered(const MidiEvent& ev, std::uint32_t mask) {
  if (isSelected(ev, mask)) {
    printEvent(ev);
  }
}

void MidiFile::printEventOnChannel(const MidiEvent& ev, std::uint32_t mask, std::uint8_t channel) {
  if (channel == 0 || channel == ev.channel) {
    printEventFiltered(ev, mask);
  }
}

}  // namespace tavrel
