// The blocks of assets that are carried whole, without a look inside: tone banks, DSP banks and
// user assets. Each reads its file before its options. A file that can't be read fails without
// words: what is left of the block then ends the parse at the top level.
#include <array>
#include <cstring>

#include "compiler/asset_block.h"
#include "compiler/bank_script.h"
#include "foundation/console.h"
#include "foundation/disk_file.h"

namespace tavrel {

namespace {

constexpr std::array<NumberOption, 8> kUserOptions{{
    {"Parameter0", 0},
    {"Parameter1", 1},
    {"Parameter2", 2},
    {"Parameter3", 3},
    {"Parameter4", 4},
    {"Parameter5", 5},
    {"Parameter6", 6},
    {"Parameter7", 7},
}};

struct BankTypeWord {
  const char* word;
  std::int32_t value;
};

constexpr std::array<BankTypeWord, 2> kBankTypes{{{"Melodic", 1}, {"Drum", 0}}};

/// Reads the asset's file, straight into its payload.
bool readFile(AssetBlock& block, Padding padding) {
  DiskFile disk(modeRead, block.fullFileName(), "");
  std::uint32_t size = 0;
  return disk.open() && disk.getSize(size) && block.makePayload(size, padding) &&
         disk.read(block.payload(), size) && disk.close();
}

bool openAndRead(AssetBlock& block, const char* label, Padding padding) {
  if (!block.open()) {
    return false;
  }
  block.announce(label);
  return readFile(block, padding);
}

/// The two DSP banks have no options: anything but `AssetEnd` fails them without words.
bool parseDspBank(AssetBlock block, AssetType type) {
  return openAndRead(block, "Reading DSP File: ", Padding::none) &&
         block.readOptions([] { return false; }) && block.store(type, kindDspBank);
}

bool readBankType(AssetBlock& block) {
  TokenFile& source = block.source();
  if (!source.isToken("BankType")) {
    return reportUnidentifiedToken(source);
  }
  TokenFile::TokenBuffer value{};
  if (!source.readTokenInto(value.data())) {
    return false;
  }
  for (const BankTypeWord& row : kBankTypes) {
    if (std::strcmp(value.data(), row.word) == 0) {
      block.entry().parameter[0] = row.value;
      return true;
    }
  }
  printLine(stderr, "Bad Argument for ", "BankType", " token.");
  return reportUnidentifiedToken(source);
}

}  // namespace

bool BankScript::parseMidiToneBank(TokenFile& source) {
  AssetBlock block(*this, source);
  return openAndRead(block, "Reading MTB File: ", Padding::none) &&
         block.readOptions([&block] { return readBankType(block); }) &&
         block.store(typeToneBank, kindToneBank);
}

bool BankScript::parseFxOutputBank(TokenFile& source) {
  return parseDspBank(AssetBlock(*this, source), typeFxOutputBank);
}

bool BankScript::parseFxProgramBank(TokenFile& source) {
  return parseDspBank(AssetBlock(*this, source), typeFxProgramBank);
}

bool BankScript::parseUserAsset(TokenFile& source) {
  AssetBlock block(*this, source);
  return openAndRead(block, "Reading Unknown File: ", Padding::toMultipleOf4) &&
         block.readOptions([&block] { return block.readNumberOption(kUserOptions); }) &&
         block.store(typeUserAsset, kindUserAsset);
}

}  // namespace tavrel
