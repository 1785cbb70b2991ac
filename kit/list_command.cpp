// tavkit list: what is in a bank, one line for each asset. Reads the table, and the blobs of
// sequences one at a time.
#include <fmt/format.h>

#include <array>

#include "compiler/bank_format.h"
#include "kit/bank/asset_facts.h"
#include "kit/bank/bank_json.h"
#include "kit/bank/named_bank.h"
#include "kit/commands.h"
#include "kit/frame/display_text.h"
#include "kit/frame/json.h"
#include "kit/frame/output.h"
#include "kit/frame/text_table.h"

namespace tavrel::kit {

namespace {

/// The cells of an asset's line that depend on its type.
struct Cells {
  std::string rate{}, bits{}, length{}, loop{}, details{};
  double seconds = 0;  ///< 0 where the length isn't known
};

/// Sets the length, "?" if it isn't known.
void setLength(Cells& cells, const std::optional<double>& seconds) {
  cells.seconds = seconds.value_or(0);
  cells.length = seconds ? durationText(*seconds) : "?";
}

Cells waveCells(const tavrel_asset& asset) {
  const WaveFacts wave = waveFacts(asset);
  Cells cells{.rate = std::to_string(wave.sampleRate),
              .bits = std::to_string(wave.bits),
              .loop = wave.loops ? fmt::format("{}-{}", wave.loopStart, wave.loopEnd) : "",
              .details = wave.encoding};
  setLength(cells, wave.seconds);
  if (wave.randomPitchAmount != 0) {
    cells.details += fmt::format(", random pitch {}", wave.randomPitchAmount);
  }
  return cells;
}

Cells sequenceCells(BankFile& bank, const tavrel_asset& asset) {
  const auto& parameters = asset.parameters;
  SequenceSummary sequence;
  const bool isWhole = summarizeSequence(bank, asset, sequence);
  const auto bpm = beatsPerMinute(parameters[sequenceTempo]);
  Cells cells;
  setLength(cells, sequence.seconds);
  cells.loop = parameters[sequenceLoop] != 0 ? std::to_string(parameters[sequenceLoop]) : "";
  cells.details = fmt::format(
      "{}, division {}, volume {}, GM mode {}, {}",
      bpm ? fmt::format("{:.2f} bpm", *bpm) : "no tempo", parameters[sequenceDivision],
      parameters[sequenceVolume], parameters[sequenceGmMode],
      isWhole ? countText(sequence.events, "event") + ", " + countText(sequence.polyphony, "voice")
              : "breaks off");
  return cells;
}

/// Returns the cells that are special for the asset's type.
Cells describe(BankFile& bank, const tavrel_asset& asset) {
  switch (asset.type) {
    case TAVREL_WAVE:
      return waveCells(asset);
    case TAVREL_SEQUENCE:
      return sequenceCells(bank, asset);
    case TAVREL_TONE_BANK:
      return {.details = *toneBankType(asset) != '\0' ? toneBankType(asset) : "unknown bank type"};
    case TAVREL_USER_ASSET:
      return {.details = fmt::format("parameters {}", fmt::join(asset.parameters, " "))};
    default:
      return {};
  }
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
    const Cells cells = describe(bank.file, asset);
    table.add({std::to_string(id), displayText(bank.defines[id]), typeName(asset.type), cells.rate,
               cells.bits, std::to_string(asset.size), cells.length, cells.loop, cells.details});
    Total& total = totals[asset.type < totals.size() ? asset.type : 0];
    ++total.assets;
    total.bytes += asset.size;
    total.seconds += cells.seconds;
  }
  return table.text() + '\n' + totalsText(totals, bank.file);
}

int runList(const Arguments& arguments, Output& output) {
  NamedBank bank = openNamedBank(arguments);
  output.results = arguments.has("--json") ? documentText(bankAsJson(bank)) : listAsText(bank);
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
          "size in bytes, length, loop and what else its type has. The loop of a wave is its first "
          "sample and the one after its last, that of a sequence is the script's value. Totals by "
          "type follow.\n\n"
          "Reads the bank's table alone, and the blobs of sequences for their length. The length "
          "of a wave is that of one channel: a bank doesn't know how many there are.",
      .example = "tavkit list sfx.tvb",
      .options = joined(bankOptions(), {{.names = "--json", .help = "Print one JSON document"}}),
      .run = runList,
  };
}

}  // namespace tavrel::kit
