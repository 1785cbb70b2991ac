#include "kit/bank/bank_json.h"

#include "compiler/bank_format.h"
#include "kit/bank/asset_facts.h"
#include "kit/bank/bank_layout.h"
#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

Json numberOrNull(const std::optional<double>& value, int decimals) {
  return value ? Json(rounded(*value, decimals)) : Json(nullptr);
}

/// Returns an object with room for `keys` keys, so that adding them copies none of the others.
Json emptyObject(std::size_t keys) {
  Json object = Json::object();
  object.get_ref<Json::object_t&>().reserve(keys);
  return object;
}

/// Returns the number as JSON, or null for a sequence that breaks off.
Json countOrNull(bool isWhole, std::uint32_t count) {
  return isWhole ? Json(count) : Json(nullptr);
}

Json waveAsJson(const tavrel_asset& asset) {
  const WaveFacts wave = waveFacts(asset);
  Json json = emptyObject(7);
  json["sampleRate"] = wave.sampleRate;
  json["bits"] = wave.bits;
  json["encoding"] = wave.encoding;
  json["samples"] = wave.samples ? Json(*wave.samples) : Json(nullptr);
  json["seconds"] = numberOrNull(wave.seconds, 4);
  json["randomPitchAmount"] = wave.randomPitchAmount;
  json["loop"] = nullptr;
  if (wave.loops) {
    json["loop"] = {{"start", wave.loopStart}, {"end", wave.loopEnd}};
  }
  return json;
}

Json sequenceAsJson(BankFile& bank, const tavrel_asset& asset) {
  const auto& parameters = asset.parameters;
  SequenceSummary sequence;
  const bool isWhole = summarizeSequence(bank, asset, sequence);
  return {{"division", parameters[sequenceDivision]},
          {"microsecondsPerQuarter", parameters[sequenceTempo]},
          {"bpm", numberOrNull(beatsPerMinute(parameters[sequenceTempo]), 2)},
          {"volume", parameters[sequenceVolume]},
          {"gmMode", parameters[sequenceGmMode]},
          {"loop", parameters[sequenceLoop]},
          {"events", countOrNull(isWhole, sequence.events)},
          {"seconds", numberOrNull(sequence.seconds, 4)},
          {"polyphony", countOrNull(isWhole, sequence.polyphony)}};
}

Json assetAsJson(NamedBank& bank, std::size_t id) {
  const tavrel_asset& asset = bank.assets()[id];
  Json json = emptyObject(7);
  json["id"] = id;
  json["define"] = textOrNull(displayText(bank.defines[id]));
  json["type"] = typeName(asset.type);
  json["offset"] = asset.offset;
  json["bytes"] = asset.size;
  json["parameters"] = asset.parameters;
  if (asset.type == TAVREL_WAVE) {
    json["wave"] = waveAsJson(asset);
  } else if (asset.type == TAVREL_SEQUENCE) {
    json["sequence"] = sequenceAsJson(bank.file, asset);
  } else if (asset.type == TAVREL_TONE_BANK) {
    json["toneBank"] = {{"bankType", textOrNull(toneBankType(asset))}};
  }
  return json;
}

}  // namespace

Json bankAsJson(NamedBank& bank) {
  Json document = {{"format", 1},
                   {"bank", displayText(bank.file.path)},
                   {"bytes", bank.file.size},
                   {"dataBytes", dataBytes(bank.file)},
                   {"headerBytes", headerBytes(bank.file)},
                   {"assets", Json::array()}};
  Json& assets = document["assets"];
  for (std::size_t id = 0; id < bank.assets().size(); ++id) {
    assets.push_back(assetAsJson(bank, id));
  }
  return document;
}

}  // namespace tavrel::kit
