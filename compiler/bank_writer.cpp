// Writes the bank. All multi-byte values are little-endian:
//
// | Offset | Width | Content |
// |---|---|---|
// | 0 | 4 | count of assets |
// | 4 | 44 * count | the table: one `AssetEntry` for each asset, in script order |
// | 4 + 44 * count | sum of all `paddedSize` | the blobs, in the same order |
// | behind the last blob | 0 to 31 | zero bytes up to the next multiple of 32 |
#include <algorithm>
#include <array>
#include <bit>
#include <limits>

#include "compiler/bank_script.h"
#include "foundation/console.h"

namespace tavrel {

namespace {

static_assert(std::endian::native == std::endian::little, "records are written as they stand");

constexpr std::uint32_t kCountSize = 4;
constexpr std::uint32_t kBankAlignment = 32;

struct ProgressLabel {
  std::uint32_t kind;
  const char* label;
};

constexpr std::array<ProgressLabel, 5> kLabels{{
    {kindWave, "Writing Digital Audio Data: "},
    {kindMidi, "Writing MIDI Data: "},
    {kindToneBank, "Writing Tone Bank Data: "},
    {kindDspBank, "Writing DSP Program Data: "},
    {kindUserAsset, "Writing Unknown Data: "},
}};

void announceBlob(const AssetData& asset) {
  const auto* row =
      std::find_if(kLabels.begin(), kLabels.end(),
                   [&asset](const ProgressLabel& label) { return label.kind == asset.kind; });
  if (row != kLabels.end()) {
    printLine(stdout, row->label, asset.name.data());
  }
}

/// Fills the bank with zero bytes from `position`, its end, to the next multiple of 32.
bool writePadding(DiskFile& bank, std::uint32_t position) {
  const std::uint32_t behind = position % kBankAlignment;
  if (behind == 0) {
    return true;
  }
  constexpr std::array<char, kBankAlignment> kZeros{};
  bank.seek(position);
  return bank.write(kZeros.data(), kBankAlignment - behind);
}

}  // namespace

bool BankScript::setAssetOffset(std::int16_t id, std::uint32_t offset) {
  entries[static_cast<std::size_t>(id)]->offset = offset;
  return true;
}

std::uint32_t BankScript::tableEnd() const {
  return kCountSize + static_cast<std::uint32_t>(kEntrySize * entries.size());
}

/// Offsets are 32 bits wide: a longer bank is refused before the old one is touched.
bool BankScript::bankFits() const {
  std::uint64_t length = tableEnd();
  for (const auto& asset : assets) {
    length += asset->paddedSize;
  }
  length += kBankAlignment - 1;
  length -= length % kBankAlignment;
  constexpr std::uint32_t kLongestBank = std::numeric_limits<std::uint32_t>::max();
  if (length > kLongestBank) {
    printLine(stderr, "ERROR: Bank of ", static_cast<std::int64_t>(length),
              " bytes is too long, only ", kLongestBank, " bytes allowed");
  }
  return length <= kLongestBank;
}

bool BankScript::writeBank() {
  if (!bankFits()) {
    return false;
  }
  const char* name = bankFileName.getNameAndPath();
  DiskFile bank(modeWrite, name, "");
  printLine(stdout, "Writing Bank File: ", name);
  // The table goes out twice: first to reserve its room, then with the offsets that the blobs got.
  std::uint32_t position = tableEnd();
  return bank.open() && writeTable(bank) && writeBlobs(bank, position) && bank.seek(0) &&
         writeTable(bank) && writePadding(bank, position) && bank.close();
}

bool BankScript::writeTable(DiskFile& bank) const {
  const auto count = static_cast<std::uint32_t>(entries.size());
  return bank.write(&count, sizeof count) &&
         std::all_of(entries.begin(), entries.end(),
                     [&bank](const auto& entry) { return bank.write(entry.get(), kEntrySize); });
}

/// Writes the blobs and notes their offsets, beginning at `position`, which moves to their end.
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
