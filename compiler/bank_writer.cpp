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

/// Fills the bank with zero bytes from the end of its last blob up to its length.
bool writePadding(DiskFile& bank, std::uint64_t blobsEnd, std::uint64_t length) {
  if (blobsEnd == length) {
    return true;
  }
  constexpr std::array<std::uint8_t, kBankAlignment> kZeros{};
  bank.seek(static_cast<std::uint32_t>(blobsEnd));
  return bank.write(kZeros.data(), static_cast<std::uint32_t>(length - blobsEnd));
}

}  // namespace

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
  return writeBankTo(bank);
}

bool BankScript::writeBankTo(DiskFile& bank) {
  // The table is written twice: first to reserve space, then with the final offsets.
  if (!bank.open() || !writeTable(bank) || !writeBlobs(bank)) {
    return false;
  }
  const std::uint64_t length = layOut();
  const std::uint64_t blobsEnd = tableEnd(assetCount()) + blobBytes();
  return bank.seek(0) && writeTable(bank) && writePadding(bank, blobsEnd, length) && bank.close();
}

std::uint64_t BankScript::layOut() {
  const std::uint32_t start = tableEnd(assetCount());
  std::uint64_t blobs = 0;
  for (const auto& asset : assets) {
    setAssetOffset(asset->id, static_cast<std::uint32_t>(start + blobs));
    blobs += asset->paddedSize;
  }
  return bankLength(assetCount(), blobs);
}

bool BankScript::writeTable(DiskFile& bank) const {
  std::array<std::uint8_t, kCountSize> count{};
  storeLittle32(count.data(), assetCount());
  return bank.write(count.data(), kCountSize) &&
         std::all_of(entries.begin(), entries.end(), [&bank](const auto& entry) {
           return bank.write(storeEntry(*entry).data(), kEntrySize);
         });
}

bool BankScript::writeBlobs(DiskFile& bank) const {
  for (const auto& asset : assets) {
    if (!bank.write(asset->payload.get(), asset->paddedSize)) {
      return false;
    }
    announceBlob(*asset);
  }
  return true;
}

}  // namespace tavrel
