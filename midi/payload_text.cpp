#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string_view>

#include "foundation/console.h"
#include "midi/controller_names.h"
#include "midi/dump_format.h"
#include "midi/midi_event.h"

namespace tavrel {

namespace {

std::span<const std::uint8_t> payload(const MidiEvent& ev) {
  return {ev.data, ev.data != nullptr ? ev.dataLength : 0};
}

}  // namespace

const char* controllerName(const MidiEvent& ev) {
  const std::uint8_t number = payloadByte(ev, 0);
  return number < controllerNames.size() ? controllerNames[number].data() : "Undefined";
}

void printText(const MidiEvent& ev) {
  const std::span<const std::uint8_t> bytes = payload(ev);
  printUnterminated(stdout,
                    std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()));
}

void printHex(const MidiEvent& ev) {
  constexpr std::size_t kBytesPerWrite = 512;
  constexpr std::size_t kWidth = 6;  // of "0x00, "
  std::array<char, kBytesPerWrite * kWidth + 1> text{};
  for (std::span<const std::uint8_t> left = payload(ev); !left.empty();) {
    const auto bytes = left.first(std::min(left.size(), kBytesPerWrite));
    for (std::size_t i = 0; i < bytes.size(); ++i) {
      formatInto(std::span(text).subspan(i * kWidth), "0x%.02x, ", bytes[i]);
    }
    printUnterminated(stdout, text.data());
    left = left.subspan(bytes.size());
  }
}

void printTimeSignature(const MidiEvent& ev) {
  // The denominator is cut to its low 16 bits, taken as signed.
  const double denominator = std::fmod(std::pow(2.0, payloadByte(ev, 1)), 65536.0);
  const auto cut = static_cast<std::int16_t>(static_cast<std::uint16_t>(denominator));
  printPiece("%d/%d Time, Midi ppqn: %d 32'nds pqn: %d", payloadByte(ev, 0), cut,
             payloadByte(ev, 2), payloadByte(ev, 3));
}

void printSmpteOffset(const MidiEvent& ev) {
  printPiece("%d:%d:%d:%d.%d", payloadByte(ev, 0), payloadByte(ev, 1), payloadByte(ev, 2),
             payloadByte(ev, 3), payloadByte(ev, 4));
}

void printBpm(const MidiEvent& ev) {
  // The single-precision constant isn't exactly a thousandth; the printed digits show it.
  const std::uint32_t milliseconds = tempoOf(ev) / 1000;
  const double secondsPerQuarter = milliseconds * double{0.001F};
  if (secondsPerQuarter != 0) {
    printPiece("Bpm: %f", 60 / secondsPerQuarter);
  }
}

void printKeySignature(const MidiEvent& ev) {
  const auto accidentals = static_cast<std::int8_t>(payloadByte(ev, 0));
  const char* mode = payloadByte(ev, 1) != 0 ? "Minor" : "Major";
  if (accidentals < 0) {
    printPiece("%d Flat(s) %s", accidentals, mode);
  } else if (accidentals > 0) {
    printPiece("%d Sharps(s) %s", accidentals, mode);
  } else {
    printPiece("Key of C %s", mode);
  }
}

}  // namespace tavrel
