// Block parser for MIDI sequences. Unlike the other parsers it reads the options first. If the file
// is missing or unfit, the parse goes on after the block and the bank lacks the asset.
#include <algorithm>

#include "compiler/asset_block.h"
#include "compiler/bank_script.h"
#include "midi/midi_asset_file.h"

namespace tavrel {

namespace {

/// Copies the whole file, and takes the division and the tempo from it. A sequence without a tempo
/// silently fails the block.
bool takeSequence(AssetBlock& block) {
  MidiAssetFile file(block.fullFileName(), 0);
  if (!file.load() || !block.makePayload(file.assetSize)) {
    return false;
  }
  std::copy_n(file.assetData, file.assetSize, block.payload());
  std::uint32_t tempo = 0;
  if (!file.firstTempo(tempo)) {
    return false;
  }
  block.entry().parameter[sequenceDivision] = static_cast<std::int16_t>(file.ppqn);
  block.entry().parameter[sequenceTempo] = static_cast<std::int32_t>(tempo);
  return true;
}

}  // namespace

bool BankScript::parseMidiFileType0(TokenFile& source) {
  AssetBlock block(*this, source, statementOf(typeMidi));
  if (!block.open()) {
    return false;
  }
  block.announce();
  return block.readOptions() && takeSequence(block) && block.store();
}

}  // namespace tavrel
