// Block parsers for assets stored unparsed: tone banks, DSP banks and user assets. The file is read
// before the options. A file that can't be read silently fails the block; the tokens that are left
// of it then end the parse at the top level.
#include <utility>

#include "compiler/asset_block.h"
#include "compiler/bank_script.h"
#include "foundation/disk_file.h"

namespace tavrel {

namespace {

/// Reads the asset's file, straight into its payload.
bool readFile(AssetBlock& block) {
  DiskFile disk(modeRead, block.fullFileName(), "");
  ByteBlock bytes;
  std::uint32_t size = 0;
  return disk.readImage(bytes, size, kBlobAlignment - 1) == DiskFile::WholeRead::complete &&
         block.takePayload(std::move(bytes), size);
}

bool parseOpaque(AssetBlock block) {
  if (!block.open()) {
    return false;
  }
  block.announce();
  return readFile(block) && block.readOptions() && block.store();
}

}  // namespace

bool BankScript::parseMidiToneBank(TokenFile& source) {
  return parseOpaque(AssetBlock(*this, source, statementOf(typeToneBank)));
}

bool BankScript::parseFxOutputBank(TokenFile& source) {
  return parseOpaque(AssetBlock(*this, source, statementOf(typeFxOutputBank)));
}

bool BankScript::parseFxProgramBank(TokenFile& source) {
  return parseOpaque(AssetBlock(*this, source, statementOf(typeFxProgramBank)));
}

bool BankScript::parseUserAsset(TokenFile& source) {
  return parseOpaque(AssetBlock(*this, source, statementOf(typeUserAsset)));
}

}  // namespace tavrel
