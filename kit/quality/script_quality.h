// How much of each sound of a script its compression keeps.
#pragma once

#include <vector>

#include "kit/frame/json.h"
#include "kit/pack/packed_script.h"
#include "kit/quality/wave_quality.h"

namespace tavrel::kit {

struct JudgedWave {
  std::size_t id = 0;
  const PackedAsset* asset = nullptr;
  WaveQuality quality{};
};

/// Reads the source of a compressed sound again. Throws Failure if it isn't the one that was
/// packed.
SourceSound sourceOf(const PackedAsset& asset);

/// Compares each compressed sound with its source, in the order of their ids. Throws Failure if a
/// source can't be read.
std::vector<JudgedWave> judgeWaves(const std::vector<PackedAsset>& assets);

/// Returns the document of schemas/quality.json.
Json qualityAsJson(const std::vector<JudgedWave>& waves);

}  // namespace tavrel::kit
