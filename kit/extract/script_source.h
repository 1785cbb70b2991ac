// The file from which a build script makes an asset of a bank again.
#pragma once

#include <optional>

#include "kit/extract/wave_export.h"
#include "platform/file_cache.h"

namespace tavrel::kit {

struct ScriptSource {
  std::optional<WaveExport> wave{};  ///< nothing: the asset's bytes as they are

  [[nodiscard]] bool isAiff() const {
    return wave && std::holds_alternative<AiffFileFormat>(wave->format);
  }
  [[nodiscard]] bool isWav() const { return wave && !isAiff(); }
};

/// Returns the file for an asset: for a wave an AIFF file if `prefersAiff` and AIFF can hold it, or
/// if a WAV file can't hold its loop. Returns nothing if no file makes the asset. Throws Failure if
/// the bank can't be read, and std::bad_alloc if memory runs out.
std::optional<ScriptSource> scriptSourceOf(BankFile& bank, const tavrel_asset& asset,
                                           bool prefersAiff, std::uint16_t channels);

/// Returns the bytes of the file. Throws as above.
FileCache::Entry fileContent(const AssetSource& asset, const ScriptSource& source);

}  // namespace tavrel::kit
