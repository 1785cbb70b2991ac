#include "midi/meta_text.h"

#include <array>

#include "foundation/console.h"
#include "midi/dump_format.h"

namespace tavrel {

namespace {

void printSequenceNumber(const MidiEvent& ev) { printPiece("%d", payloadByte(ev, 0)); }

void printNothing(const MidiEvent& /*ev*/) {}

/// How meta events of one type are printed.
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
    {kMetaEndOfTrack, " EndOfTrack", printNothing},
    {kMetaTempo, " Tempo - ", printBpm},
    {0x54, " SmpteOffset - ", printSmpteOffset},
    {0x58, " TimeSignature - ", printTimeSignature},
    {0x59, " KeySignature - ", printKeySignature},
    {0x7F, " SequencerSpecific - ", printHex},
}};

}  // namespace

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

}  // namespace tavrel
