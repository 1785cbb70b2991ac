#include "kit/report/asset_picture.h"

#include <algorithm>

#include "kit/report/base64.h"
#include "kit/report/sequence_picture.h"
#include "kit/report/wave_picture.h"

namespace tavrel::kit {

namespace {

Json firstBytes(BankFile& bank, const tavrel_asset& asset) {
  constexpr std::uint32_t kShown = 96;
  const std::uint32_t count = std::min(asset.size, kShown);
  return {{"firstBytes", base64(bank.read(asset.offset, count).get(), count)}};
}

Json waveWithSound(ReportData& data, std::uint32_t id, AudioBudget& budget) {
  tavrel_asset asset = data.subject.bank.assets()[id];
  const ByteBlock bytes = data.subject.bank.file.blob(asset);
  asset.bytes = bytes.get();
  tavrel_wave wave{};
  tavrel_asset_wave(&asset, &wave);
  const JudgedWave* judged = data.judgedWave(id);
  const SourceSound source = judged != nullptr ? sourceOf(*judged->asset) : SourceSound{};
  Json json = wavePicture(wave, source);
  json["audio"] = budget.take(asset.size) ? Json(base64(bytes.get(), asset.size)) : Json(nullptr);
  return json;
}

bool hasSamples(const tavrel_asset& asset) {
  tavrel_wave wave{};
  return tavrel_asset_wave(&asset, &wave) != 0 && wave.sample_count > 0;
}

}  // namespace

Json assetPicture(ReportData& data, std::uint32_t id, AudioBudget& budget) {
  const tavrel_asset& asset = data.subject.bank.assets()[id];
  if (hasSamples(asset)) {
    return waveWithSound(data, id, budget);
  }
  Json json = firstBytes(data.subject.bank.file, asset);
  if (asset.type == TAVREL_SEQUENCE) {
    json["sequence"] = sequencePicture(data.subject.bank.file, asset);
  }
  return json;
}

}  // namespace tavrel::kit
