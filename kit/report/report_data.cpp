#include "kit/report/report_data.h"

#include <algorithm>

#include "compiler/bank_format.h"
#include "kit/bank/asset_facts.h"
#include "kit/bank/bank_json.h"
#include "kit/bank/blob_content.h"
#include "kit/check/report_formats.h"
#include "kit/report/duplicates.h"
#include "kit/verify/verify_json.h"

namespace tavrel::kit {

namespace {

/// Adds what the script says. One that doesn't pack is checked only.
void addScript(ReportData& data, const RunPlan& plan) {
  data.check = checkScript(plan, {});
  try {
    data.subject.script = std::make_unique<ScriptComparison>(data.subject.bank, plan);
  } catch (const PackFailure&) {
    return;
  }
  data.waves = judgeWaves(data.subject.script->scriptAssets());
}

/// Returns the documents that need a script, or nulls.
Json scriptAsJson(ReportData& data) {
  if (!data.check) {
    return {{"check", nullptr}, {"quality", nullptr}, {"packs", nullptr}};
  }
  const bool packs = data.subject.script != nullptr;
  return {{"check", problemsAsJson({*data.check})},
          {"quality", packs ? qualityAsJson(data.waves) : Json(nullptr)},
          {"packs", packs}};
}

/// Returns pairs of an asset's id and the id of its wave in the document of qualities.
Json judgedIds(ReportData& data) {
  Json pairs = Json::array();
  for (std::uint32_t id = 0; id < data.subject.count(); ++id) {
    if (const JudgedWave* wave = data.judgedWave(id)) {
      pairs.push_back({id, wave->id});
    }
  }
  return pairs;
}

}  // namespace

const JudgedWave* ReportData::judgedWave(std::uint32_t id) {
  const auto scriptId = subject.script ? subject.script->scriptId(id) : std::nullopt;
  if (!scriptId) {
    return nullptr;
  }
  const auto wave = std::lower_bound(
      waves.begin(), waves.end(), *scriptId,
      [](const JudgedWave& candidate, std::uint32_t wanted) { return candidate.id < wanted; });
  const tavrel_asset& asset = subject.bank.assets()[id];
  const bool isSame = wave != waves.end() && wave->id == *scriptId && asset.type == TAVREL_WAVE &&
                      asset.parameters[waveBitsPerSample] == kAdpcmBits &&
                      asset.size == wave->asset->record.size &&
                      holds(subject.bank.file, asset, wave->asset->record.bytes);
  return isSame ? &*wave : nullptr;
}

ReportData reportData(NamedBank bank, const std::optional<RunPlan>& plan) {
  ReportData data{.subject = {.bank = std::move(bank), .sequences = {}, .script = {}}};
  if (plan) {
    addScript(data, *plan);
  }
  data.subject.sequences = readSequences(data.subject.bank.file);
  data.verdicts = verify(data.subject);
  return data;
}

Json reportAsJson(ReportData& data) {
  Json document = {{"format", 1},
                   {"list", bankAsJson(data.subject.bank)},
                   {"verify", verdictsAsJson(data.subject, data.verdicts)},
                   {"hasHeader", data.subject.bank.header.has_value()},
                   {"duplicates", duplicates(data.subject.bank.file)}};
  document.update(scriptAsJson(data));
  document["judged"] = judgedIds(data);
  return document;
}

}  // namespace tavrel::kit
