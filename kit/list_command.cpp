// tavkit list: what is in a bank, one line for each asset. Reads the table, and the blobs of
// sequences one at a time.
#include <fmt/format.h>

#include <array>

#include "compiler/bank_format.h"
#include "kit/asset_facts.h"
#include "kit/bank_layout.h"
#include "kit/commands.h"
#include "kit/display_text.h"
#include "kit/json.h"
#include "kit/named_bank.h"
#include "kit/output.h"
#include "kit/text_table.h"

namespace tavrel::kit {

namespace {

/// What the list says of one asset, as JSON and as the cells of its line.
struct Entry {
  std::string key{};  ///< under which `json` stands in the asset's object; empty if it has no more
  Json json{};
  std::string rate{}, bits{}, length{}, loop{}, details{};
  double seconds = 0;  ///< 0 where the length isn't known
};

Json numberOrNull(const std::optional<double>& value, int decimals) {
  return value ? Json(rounded(*value, decimals)) : Json(nullptr);
}

Entry waveEntry(const tavrel_asset& asset) {
  const WaveFacts wave = waveFacts(asset);
  Entry entry{.key = "wave"};
  entry.json = {{"sampleRate", wave.sampleRate},
                {"bits", wave.bits},
                {"encoding", wave.encoding},
                {"samples", wave.samples ? Json(*wave.samples) : Json(nullptr)},
                {"seconds", numberOrNull(wave.seconds, 4)},
                {"randomPitchAmount", wave.randomPitchAmount},
                {"loop", nullptr}};
  if (wave.loops) {
    entry.json["loop"] = {{"start", wave.loopStart}, {"end", wave.loopEnd}};
    entry.loop = fmt::format("{}-{}", wave.loopStart, wave.loopEnd);
  }
  entry.rate = std::to_string(wave.sampleRate);
  entry.bits = std::to_string(wave.bits);
  entry.length = wave.seconds ? durationText(*wave.seconds) : "?";
  entry.details = wave.encoding;
  if (wave.randomPitchAmount != 0) {
    entry.details += fmt::format(", random pitch {}", wave.randomPitchAmount);
  }
  entry.seconds = wave.seconds.value_or(0);
  return entry;
}

/// Returns the number as JSON, or null for a sequence that breaks off.
Json countOrNull(bool isWhole, std::uint32_t count) {
  return isWhole ? Json(count) : Json(nullptr);
}

Entry sequenceEntry(BankFile& bank, const tavrel_asset& asset) {
  const auto& parameters = asset.parameters;
  SequenceSummary sequence;
  const bool isWhole = summarizeSequence(bank, asset, sequence);
  const auto bpm = beatsPerMinute(parameters[sequenceTempo]);
  Entry entry{.key = "sequence"};
  entry.json = {{"division", parameters[sequenceDivision]},
                {"microsecondsPerQuarter", parameters[sequenceTempo]},
                {"bpm", numberOrNull(bpm, 2)},
                {"volume", parameters[sequenceVolume]},
                {"gmMode", parameters[sequenceGmMode]},
                {"loop", parameters[sequenceLoop]},
                {"events", countOrNull(isWhole, sequence.events)},
                {"seconds", numberOrNull(sequence.seconds, 4)},
                {"polyphony", countOrNull(isWhole, sequence.polyphony)}};
  entry.seconds = sequence.seconds.value_or(0);
  entry.length = sequence.seconds ? durationText(entry.seconds) : "?";
  entry.loop = parameters[sequenceLoop] != 0 ? std::to_string(parameters[sequenceLoop]) : "";
  entry.details = bpm ? fmt::format("{:.2f} bpm, ", *bpm) : "no tempo, ";
  entry.details += fmt::format("division {}, volume {}, GM mode {}", parameters[sequenceDivision],
                               parameters[sequenceVolume], parameters[sequenceGmMode]);
  entry.details += isWhole
                       ? fmt::format(", {} events, {} voices", sequence.events, sequence.polyphony)
                       : ", breaks off";
  return entry;
}

Entry toneBankEntry(const tavrel_asset& asset) {
  constexpr std::array<const char*, 2> kTypes{"drum", "melodic"};
  const auto value = static_cast<std::uint32_t>(asset.parameters[kToneBankType]);
  const Json type = value < kTypes.size() ? Json(kTypes[value]) : Json(nullptr);
  return {.key = "toneBank",
          .json = {{"bankType", type}},
          .details = value < kTypes.size() ? kTypes[value] : "unknown bank type"};
}

Entry userAssetEntry(const tavrel_asset& asset) {
  return {.details = fmt::format("parameters {}", fmt::join(asset.parameters, " "))};
}

Entry describe(BankFile& bank, const tavrel_asset& asset) {
  switch (asset.type) {
    case TAVREL_WAVE:
      return waveEntry(asset);
    case TAVREL_SEQUENCE:
      return sequenceEntry(bank, asset);
    case TAVREL_TONE_BANK:
      return toneBankEntry(asset);
    case TAVREL_USER_ASSET:
      return userAssetEntry(asset);
    default:
      return {};
  }
}

std::string listAsJson(NamedBank& bank) {
  Json assets = Json::array();
  for (std::size_t id = 0; id < bank.assets().size(); ++id) {
    const tavrel_asset& asset = bank.assets()[id];
    Json row = {{"id", id},
                {"define", textOrNull(displayText(bank.defines[id]))},
                {"type", typeName(asset.type)},
                {"offset", asset.offset},
                {"bytes", asset.size},
                {"parameters", asset.parameters}};
    const Entry entry = describe(bank.file, asset);
    if (!entry.key.empty()) {
      row[entry.key] = entry.json;
    }
    assets.push_back(std::move(row));
  }
  return documentText({{"format", 1},
                       {"bank", displayText(bank.file.path)},
                       {"bytes", bank.file.size},
                       {"dataBytes", dataBytes(bank.file)},
                       {"headerBytes", headerBytes(bank.file)},
                       {"assets", std::move(assets)}});
}

/// Sums of all assets of one type.
struct Total {
  std::uint64_t assets = 0;
  std::uint64_t bytes = 0;
  double seconds = 0;
};

/// Totals by type; the first one is that of all unknown types.
using Totals = std::array<Total, TAVREL_USER_ASSET + 1>;

std::string totalsText(const Totals& totals, const BankFile& bank) {
  TextTable table({{"type"},
                   {"assets", Alignment::right},
                   {"bytes", Alignment::right},
                   {"length", Alignment::right}});
  std::uint64_t assetBytes = 0;
  for (std::size_t type = 0; type < totals.size(); ++type) {
    const Total& total = totals[type];
    assetBytes += total.bytes;
    if (total.assets > 0) {
      table.add({typeName(static_cast<std::uint32_t>(type)), std::to_string(total.assets),
                 std::to_string(total.bytes),
                 total.seconds > 0 ? durationText(total.seconds) : ""});
    }
  }
  table.add({"table and padding", "", std::to_string(bank.size - assetBytes), ""});
  table.add({"bank", std::to_string(bank.assets.size()), std::to_string(bank.size), ""});
  return table.text();
}

std::string listAsText(NamedBank& bank) {
  TextTable table({{"id", Alignment::right},
                   {"define"},
                   {"type"},
                   {"rate", Alignment::right},
                   {"bits", Alignment::right},
                   {"bytes", Alignment::right},
                   {"length", Alignment::right},
                   {"loop"},
                   {"details"}});
  Totals totals{};
  for (std::size_t id = 0; id < bank.assets().size(); ++id) {
    const tavrel_asset& asset = bank.assets()[id];
    const Entry entry = describe(bank.file, asset);
    table.add({std::to_string(id), displayText(bank.defines[id]), typeName(asset.type), entry.rate,
               entry.bits, std::to_string(asset.size), entry.length, entry.loop, entry.details});
    Total& total = totals[asset.type < totals.size() ? asset.type : 0];
    ++total.assets;
    total.bytes += asset.size;
    total.seconds += entry.seconds;
  }
  return table.text() + '\n' + totalsText(totals, bank.file);
}

int runList(const Arguments& arguments, Output& output) {
  NamedBank bank = openNamedBank(arguments);
  output.results = arguments.has("--json") ? listAsJson(bank) : listAsText(bank);
  return exitYes;
}

}  // namespace

Command listCommand() {
  return {
      .name = "list",
      .operands = {.synopsis = "BANK", .fewest = 1, .most = 1, .completion = Completion::bank},
      .summary = "List the assets of a bank",
      .description =
          "Prints one line for each asset: its id, define, type, sample rate, bits per sample, "
          "size in bytes, length, loop and what else its type has. Totals by type follow.\n\n"
          "Reads the bank's table alone, and the blobs of sequences for their length. The length "
          "of a wave is that of one channel: a bank doesn't know how many there are.",
      .example = "tavkit list sfx.tvb",
      .options = joined(bankOptions(), {{.names = "--json", .help = "Print one JSON document"}}),
      .run = runList,
  };
}

}  // namespace tavrel::kit
