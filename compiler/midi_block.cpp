// The block of a MIDI sequence. Unlike the other blocks it reads all its options first: when its
// file turns out to be missing or unfit, the script goes on behind it, and the bank lacks the
// asset.
#include <algorithm>
#include <array>

#include "compiler/asset_block.h"
#include "compiler/bank_script.h"
#include "midi/midi_asset_file.h"

namespace tavrel {

namespace {

constexpr std::size_t kDivision = 0;
constexpr std::size_t kVolume = 1;
constexpr std::size_t kGmMode = 2;
constexpr std::size_t kLoop = 3;
constexpr std::size_t kTempo = 5;

constexpr std::array<NumberOption, 3> kMidiOptions{{
    {"Volume", kVolume},
    {"Loop", kLoop},
    {"GmMode", kGmMode},
}};

/// Copies the sequence, whole, and takes its two numbers. No tempo fails the block without words.
bool takeSequence(AssetBlock& block) {
  MidiAssetFile file(block.fullFileName(), 0);
  if (!file.load() || !block.makePayload(file.assetSize, Padding::toMultipleOf4)) {
    return false;
  }
  std::copy_n(file.assetData, file.assetSize, block.payload());
  std::uint32_t tempo = 0;
  if (!file.firstTempo(tempo)) {
    return false;
  }
  block.entry().parameter[kDivision] = static_cast<std::int16_t>(file.ppqn);
  block.entry().parameter[kTempo] = static_cast<std::int32_t>(tempo);
  return true;
}

}  // namespace

bool BankScript::parseMidiFileType0(TokenFile& source) {
  AssetBlock block(*this, source);
  if (!block.open()) {
    return false;
  }
  block.announce("Reading Midi File: ");
  block.entry().parameter[kVolume] = 127;
  block.entry().parameter[kGmMode] = 1;
  return block.readOptions([&block] { return block.readNumberOption(kMidiOptions); }) &&
         takeSequence(block) && block.store(typeMidi, kindMidi);
}

}  // namespace tavrel
