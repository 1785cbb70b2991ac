// What a run knows of an asset besides its table record. Owns the asset's bytes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "foundation/byte_block.h"

namespace tavrel {

/// Selects the progress line of the bank writer: `AssetData::kind`. Both DSP banks share one.
enum AssetKind : std::uint32_t {
  kindWave = 1,
  kindMidi = 2,
  kindToneBank = 3,
  kindDspBank = 4,
  kindUserAsset = 6,
};

struct AssetData {
  static constexpr std::size_t kLongestName = 79;

  /// Holds any name and its terminator.
  using Name = std::array<char, kLongestName + 1>;

  Name name{};          ///< boom_wav for boom.wav; `writeHeader` changes it to the define's form
  ByteBlock payload;    ///< the blob, `paddedSize` bytes
  std::int16_t id = 0;  ///< index of the asset's record in the table
  std::uint32_t reserved = 0;
  std::uint32_t paddedSize = 0;  ///< size of the blob in the bank, with its padding
  std::uint32_t kind = 0;        ///< an `AssetKind`
  std::size_t scriptOffset = 0;  ///< where the keyword of its block starts in the script
  bool compressed = false;       ///< the payload is ADPCM made from the file's samples
};

}  // namespace tavrel
