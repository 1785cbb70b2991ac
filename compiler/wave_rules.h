// The rules of WaveFile statements: which file is read as AIFF, which sound is compressed, and
// where the loop of a WAV file ends.
#pragma once

#include <cstdint>

#include "foundation/text_utilities.h"

namespace tavrel {

/// Returns true if a file with this extension, as `getExtensionOnly` of `FileName` returns it, is
/// read as AIFF and not as WAV. Null returns false.
inline bool isAiffExtension(const char* extension) { return equalsIgnoringCase(extension, "aif"); }

/// Returns true if the bank holds a sound of `bits` per sample as ADPCM. Looped sounds are never
/// compressed.
constexpr bool isCompressed(std::uint16_t bits, bool loops, bool wantsAdpcm) {
  return wantsAdpcm && !loops && bits == 16;
}

/// Returns how many samples of all channels `size` bytes are in a WAV file: the end of its loop,
/// which is always the whole file. Returns 0 for other widths than 4, 8 and 16 bits.
constexpr std::uint32_t waveSampleCount(std::uint32_t size, std::uint16_t bits) {
  switch (bits) {
    case 4:
      return size * 2;
    case 8:
      return size;
    case 16:
      return size / 2;
    default:
      return 0;
  }
}

}  // namespace tavrel
