// The two records that every asset has while the tool runs: the one that goes into the bank's
// table, and its companion in memory, which owns the asset's bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "foundation/byte_block.h"

namespace tavrel {

/// What a blob of the bank holds: `AssetEntry::type`.
enum AssetType : std::uint32_t {
  typeWave = 1,
  typeMidi = 2,
  typeToneBank = 3,
  typeFxProgramBank = 4,
  typeFxOutputBank = 5,
  typeUserAsset = 6,
};

/// Which progress line the bank writer prints: `AssetData::kind`. Both DSP banks share one.
enum AssetKind : std::uint32_t {
  kindWave = 1,
  kindMidi = 2,
  kindToneBank = 3,
  kindDspBank = 4,
  kindUserAsset = 6,
};

/// The table record of an asset. Its form in memory is its form in the bank, all words
/// little-endian:
///
/// | Offset | Width | Content |
/// |---|---|---|
/// | 0 | 4 | `type`, an `AssetType` |
/// | 4 | 4 | `offset` of the blob from the start of the bank |
/// | 8 | 4 | `size` of the blob in bytes, its padding left out |
/// | 12 | 8 * 4 | `parameter`, whose meaning depends on the type |
struct AssetEntry {
  std::uint32_t type = 0;
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
  std::array<std::int32_t, 8> parameter{};
};

constexpr std::size_t kEntrySize = 4 + 4 + 4 + 8 * 4;
static_assert(sizeof(AssetEntry) == kEntrySize);

/// What belongs to an asset beside its table record.
struct AssetData {
  static constexpr std::size_t kLongestName = 79;

  std::array<char, kLongestName + 1> name{};  ///< boom_wav for boom.wav; upper-cased by the header
  ByteBlock payload;                          ///< the blob, `paddedSize` bytes
  std::int16_t id = 0;                        ///< the asset's index in the table
  std::uint32_t reserved = 0;
  std::uint32_t paddedSize = 0;  ///< the bytes that the blob takes in the bank
  std::uint32_t kind = 0;        ///< an `AssetKind`
};

}  // namespace tavrel
