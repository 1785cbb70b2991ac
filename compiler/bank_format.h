// The bank file: a table of fixed records, then the assets' bytes. All words are little-endian.
//
// | Offset | Width | Content |
// |---|---|---|
// | 0 | 4 | count of assets |
// | 4 | 44 * count | the table: one `AssetEntry` per asset, in script order |
// | 4 + 44 * count | sum of the padded blobs | the blobs, in the same order |
// | after the last blob | 0 to 31 | zero bytes up to the next multiple of 32 |
//
// An asset's id is the index of its record.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "foundation/byte_block.h"
#include "foundation/byte_order.h"

namespace tavrel {

/// What a blob holds: `AssetEntry::type`.
enum AssetType : std::uint32_t {
  typeWave = 1,
  typeMidi = 2,
  typeToneBank = 3,
  typeFxProgramBank = 4,
  typeFxOutputBank = 5,
  typeUserAsset = 6,
};

/// Parameter words of a wave.
enum WaveParameter : std::uint8_t {
  waveSampleRate = 0,         ///< in hertz
  waveLoop = 1,               ///< 0 or 1
  waveBitsPerSample = 2,      ///< 4 is ADPCM
  waveRandomPitchAmount = 3,  ///< as the script states it
  waveLoopStart = 4,          ///< in samples
  waveLoopEnd = 5,            ///< in samples
};

/// Parameter words of a MIDI sequence.
enum SequenceParameter : std::uint8_t {
  sequenceDivision = 0,  ///< ticks per quarter note
  sequenceVolume = 1,
  sequenceGmMode = 2,
  sequenceLoop = 3,
  sequenceTempo = 5,  ///< microseconds per quarter note
};

/// The one parameter word of a tone bank.
constexpr int kToneBankType = 0;

/// Returns a mask of the parameter words that assets of a type use: bit n is set for word n. All
/// other words are 0. A type that isn't an `AssetType` may use every word.
constexpr std::uint32_t usedParameters(std::uint32_t type) {
  const auto words = [](auto... parameters) { return ((1U << parameters) | ... | 0U); };
  switch (type) {
    case typeWave:
      return words(waveSampleRate, waveLoop, waveBitsPerSample, waveRandomPitchAmount,
                   waveLoopStart, waveLoopEnd);
    case typeMidi:
      return words(sequenceDivision, sequenceVolume, sequenceGmMode, sequenceLoop, sequenceTempo);
    case typeToneBank:
      return words(kToneBankType);
    case typeFxProgramBank:
    case typeFxOutputBank:
      return words();
    default:
      return words(0, 1, 2, 3, 4, 5, 6, 7);
  }
}

/// The table record of an asset:
///
/// | Offset | Width | Content |
/// |---|---|---|
/// | 0 | 4 | `type`, an `AssetType` |
/// | 4 | 4 | `offset` of the blob from the start of the bank |
/// | 8 | 4 | `size` of the blob in bytes, without its padding |
/// | 12 | 8 * 4 | `parameter`, whose meaning depends on the type |
struct AssetEntry {
  std::uint32_t type = 0;
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
  std::array<std::int32_t, 8> parameter{};
};

constexpr std::uint32_t kCountSize = 4;
constexpr std::uint32_t kEntrySize = 4 + 4 + 4 + 8 * 4;
static_assert(kEntrySize == 44);

constexpr std::uint32_t kBlobAlignment = 4;   ///< of the types whose blobs are padded
constexpr std::uint32_t kBankAlignment = 32;  ///< of the whole file
constexpr std::uint32_t kMostAssets = 32768;  ///< ids are 16-bit and not negative
constexpr std::uint32_t kLongestBank = std::numeric_limits<std::uint32_t>::max();  ///< in bytes

/// Returns the offset of the first blob in a bank of `count` assets.
constexpr std::uint32_t tableEnd(std::uint32_t count) { return kCountSize + kEntrySize * count; }

/// Returns the length of a bank of `count` assets whose padded blobs have `blobBytes` bytes.
/// Computed in 64 bits: the result may exceed `kLongestBank`.
constexpr std::uint64_t bankLength(std::uint32_t count, std::uint64_t blobBytes) {
  return roundUp(tableEnd(count) + blobBytes, kBankAlignment);
}

/// Returns the bytes of a record as the table holds them.
constexpr std::array<std::uint8_t, kEntrySize> storeEntry(const AssetEntry& entry) {
  std::array<std::uint8_t, kEntrySize> bytes{};
  storeLittle32(bytes.data(), entry.type);
  storeLittle32(bytes.data() + 4, entry.offset);
  storeLittle32(bytes.data() + 8, entry.size);
  for (std::size_t i = 0; i < entry.parameter.size(); ++i) {
    storeLittle32(bytes.data() + 12 + 4 * i, static_cast<std::uint32_t>(entry.parameter[i]));
  }
  return bytes;
}

}  // namespace tavrel
