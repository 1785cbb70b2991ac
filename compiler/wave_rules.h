// The rules of WaveFile statements: which file is read as AIFF, and which sound is compressed.
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

}  // namespace tavrel
