#include "kit/quality/script_quality.h"

#include <fmt/format.h>

#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"
#include "kit/frame/progress.h"
#include "samples/adpcm_stream.h"

namespace tavrel::kit {

SourceSound sourceOf(const PackedAsset& asset) {
  constexpr std::uint16_t kBits = 16;
  SourceSound source = readSource(asset.file);
  if (source.bits != kBits || adpcmStreamSize(source.size) != asset.record.size) {
    throw Failure(fmt::format("{} has changed while it was read", asset.file));
  }
  return source;
}

namespace {

WaveQuality judge(const PackedAsset& asset) {
  const SourceSound source = sourceOf(asset);
  return compareStream(asset.record.bytes, source.samples, adpcmCodeBytes(source.size));
}

}  // namespace

std::vector<JudgedWave> judgeWaves(const std::vector<PackedAsset>& assets) {
  Progress progress(assets.size());
  std::vector<JudgedWave> waves;
  for (std::size_t id = 0; id < assets.size(); ++id) {
    if (assets[id].isCompressed) {
      waves.push_back({.id = id, .asset = &assets[id], .quality = judge(assets[id])});
    }
    progress.advance(1);
  }
  return waves;
}

Json qualityAsJson(const std::vector<JudgedWave>& waves) {
  Json list = Json::array();
  for (const auto& [id, asset, quality] : waves) {
    list.push_back({{"id", id},
                    {"define", displayText(asset->define)},
                    {"file", displayText(asset->file)},
                    {"snr", quality.decibels ? Json(rounded(*quality.decibels, 2)) : Json(nullptr)},
                    {"worstError", quality.worstError},
                    {"worstSample", quality.worstSample},
                    {"clipped", quality.clipped}});
  }
  return {{"format", 1}, {"waves", std::move(list)}};
}

}  // namespace tavrel::kit
