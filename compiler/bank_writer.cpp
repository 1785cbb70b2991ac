// Writes the bank, whose layout is in compiler/bank_format.h.
#include <algorithm>
#include <array>

#include "compiler/bank_script.h"
#include "compiler/script_language.h"
#include "foundation/console.h"

namespace tavrel {

namespace {

/// Prints the progress line of a blob. A kind that no statement has prints nothing.
void announceBlob(const AssetData& asset) {
  const auto* row =
      std::find_if(kStatements.begin(), kStatements.end(),
                   [&asset](const Statement& statement) { return statement.kind == asset.kind; });
  if (row != kStatements.end()) {
    printLine(stdout, row->writing, asset.name.data());
  }
}

/// Fills the bank with zero bytes from `position`, its end, up to the next multiple of 32.
bool writePadding(DiskFile& bank, std::uint32_t position) {
  const auto missing = static_cast<std::uint32_t>(roundUp(position, kBankAlignment) - position);
  if (missing == 0) {
    return true;
  }
  constexpr std::array<std::uint8_t, kBankAlignment> kZeros{};
  bank.seek(position);
  return bank.write(kZeros.data(), missing);
}

}  // namespace

/// Refuses a bank that is too long for 32-bit offsets, before the old bank is touched.
bool BankScript::checkBankLength() const {
  const std::uint64_t length = bankLength(assetCount(), blobBytes());
  if (length > kLongestBank) {
    printLine(stderr, "ERROR: Bank of ", static_cast<std::int64_t>(length),
              " bytes is too long, only ", kLongestBank, " bytes allowed");
  }
  return length <= kLongestBank;
}

bool BankScript::writeBank() {
  if (!checkBankLength()) {
    return false;
  }
  const char* name = bankFileName.getNameAndPath();
  DiskFile bank(modeWrite, name, "");
  printLine(stdout, "Writing Bank File: ", name);
  // The table is written twice: first to reserve space, then with the final offsets.
  std::uint32_t position = tableEnd(assetCount());
  return bank.open() && writeTable(bank) && writeBlobs(bank, position) && bank.seek(0) &&
         writeTable(bank) && writePadding(bank, position) && bank.close();
}

bool BankScript::writeTable(DiskFile& bank) const {
  std::array<std::uint8_t, kCountSize> count{};
  storeLittle32(count.data(), assetCount());
  return bank.write(count.data(), kCountSize) &&
         std::all_of(entries.begin(), entries.end(), [&bank](const auto& entry) {
           return bank.write(storeEntry(*entry).data(), kEntrySize);
         });
}

/// Writes the blobs and sets their offsets. `position` is the offset of the first one and moves to
/// the end of the last one.
bool BankScript::writeBlobs(DiskFile& bank, std::uint32_t& position) {
  for (const auto& asset : assets) {
    setAssetOffset(asset->id, position);
    if (!bank.write(asset->payload.get(), asset->paddedSize)) {
      return false;
    }
    position += asset->paddedSize;
    announceBlob(*asset);
  }
  return true;
}

}  // namespace tavrel
