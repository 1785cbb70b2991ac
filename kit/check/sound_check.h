// Checks of a sound that its reader has loaded: what the bank would hold of it with the options of
// its block. Shared by WAV and AIFF files.
#pragma once

#include <cstdint>

#include "kit/check/asset_check.h"
#include "kit/check/block_findings.h"
#include "kit/check/fix_command.h"

namespace tavrel::kit {

/// View of a sound in the form of a WAV file; owned by its reader.
struct LoadedSound {
  const std::uint8_t* bytes = nullptr;
  std::uint32_t size = 0;  ///< in bytes; not 0
  std::uint16_t bits = 0;  ///< per sample
  std::uint16_t channels = 0;
  std::uint32_t rate = 0;  ///< in hertz
  // The loop that the bank would hold with Loop 1, in samples.
  std::uint32_t loopStart = 0;
  std::uint32_t loopEnd = 0;
};

/// Returns what a conversion of the sound must do to fix all that is wrong with its form.
SoundFix fixOf(const LoadedSound& sound, std::string_view extension, const BlockFindings& findings);

/// Checks what can be seen without the file. `asset` has its size if it is stored.
void checkSoundOptions(const CheckedAsset& asset, BlockFindings& findings);

/// Checks the sound, and sets what the bank would hold of it. `isPlayable` means that its bytes are
/// samples of its channels. `extension` is that of its form.
void checkSound(const LoadedSound& sound, bool isPlayable, std::string_view extension,
                CheckedAsset& asset, BlockFindings& findings);

}  // namespace tavrel::kit
