// tavkit diff: what is different between two versions of a bank, one line for each asset. Reads
// blobs in pieces, and only those that the tables don't tell apart.
#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "kit/bank/named_bank.h"
#include "kit/commands.h"
#include "kit/diff/bank_difference.h"
#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"
#include "kit/frame/json.h"
#include "kit/frame/output.h"
#include "kit/frame/text_table.h"

namespace tavrel::kit {

namespace {

/// What has happened to an asset, as the command's output calls it.
struct Change {
  const char* name;
  bool (*applies)(const AssetDifference& difference);
};

constexpr std::array<Change, 5> kChanges{{
    {"added", [](const AssetDifference& asset) { return !asset.oldId; }},
    {"removed", [](const AssetDifference& asset) { return !asset.newId; }},
    {"moved", [](const AssetDifference& asset) { return asset.isMoved; }},
    {"changed", [](const AssetDifference& asset) { return asset.isChanged; }},
    {"renamed", [](const AssetDifference& asset) { return asset.isRenamed; }},
}};

std::vector<const char*> changesOf(const AssetDifference& difference) {
  std::vector<const char*> names;
  for (const Change& change : kChanges) {
    if (change.applies(difference)) {
      names.push_back(change.name);
    }
  }
  return names;
}

/// Two versions of a bank and what was found out about them.
struct Comparison {
  NamedBank older;
  NamedBank newer;
  std::vector<AssetDifference> differences{};
  std::optional<bool> rebuild{};
};

using AssetId = std::optional<std::uint32_t>;

/// Returns the asset's define as it may be shown, or the empty string.
std::string shownDefine(const NamedBank& bank, AssetId id) {
  return id ? displayText(bank.defines[*id]) : "";
}

std::string comparisonAsJson(const Comparison& comparison) {
  Json assets = Json::array();
  for (const AssetDifference& asset : comparison.differences) {
    assets.push_back({{"changes", changesOf(asset)},
                      {"oldDefine", textOrNull(shownDefine(comparison.older, asset.oldId))},
                      {"newDefine", textOrNull(shownDefine(comparison.newer, asset.newId))},
                      {"oldId", asset.oldId ? Json(*asset.oldId) : Json(nullptr)},
                      {"newId", asset.newId ? Json(*asset.newId) : Json(nullptr)},
                      {"parameters", asset.parameters}});
  }
  const auto& rebuild = comparison.rebuild;
  return documentText({{"format", 1},
                       {"same", comparison.differences.empty()},
                       {"rebuild", rebuild ? Json(*rebuild) : Json(nullptr)},
                       {"assets", std::move(assets)}});
}

/// Returns the define before and after, or the one that there is.
std::string defineCell(const Comparison& comparison, const AssetDifference& asset) {
  const std::string before = shownDefine(comparison.older, asset.oldId);
  const std::string after = shownDefine(comparison.newer, asset.newId);
  if (asset.isRenamed) {
    return fmt::format("{} -> {}", before.empty() ? "?" : before, after.empty() ? "?" : after);
  }
  return after.empty() ? before : after;
}

/// Returns what exactly has changed in an asset that both banks have.
std::string detailsCell(const Comparison& comparison, const AssetDifference& asset) {
  if (!asset.isChanged) {
    return "";
  }
  const tavrel_asset& before = comparison.older.assets()[*asset.oldId];
  const tavrel_asset& after = comparison.newer.assets()[*asset.newId];
  std::vector<std::string> details;
  if (before.type != after.type) {
    details.push_back(fmt::format("{} -> {}", typeName(before.type), typeName(after.type)));
  }
  if (asset.hasOtherBytes) {
    details.push_back(before.size == after.size
                          ? "other bytes"
                          : fmt::format("{} -> {} bytes", before.size, after.size));
  }
  for (const std::size_t i : asset.parameters) {
    details.push_back(
        fmt::format("parameter {}: {} -> {}", i, before.parameters[i], after.parameters[i]));
  }
  return fmt::format("{}", fmt::join(details, ", "));
}

std::string idCell(AssetId id) { return id ? std::to_string(*id) : ""; }

/// Returns the line with the numbers of all changes: "3 assets differ: 1 added, 2 moved".
std::string summaryText(const std::vector<AssetDifference>& differences) {
  std::vector<std::string> counts;
  for (const Change& change : kChanges) {
    const auto count = std::count_if(differences.begin(), differences.end(), change.applies);
    if (count > 0) {
      counts.push_back(fmt::format("{} {}", count, change.name));
    }
  }
  return fmt::format("{} {}: {}\n", countText(differences.size(), "asset"),
                     differences.size() == 1 ? "differs" : "differ", fmt::join(counts, ", "));
}

std::string comparisonAsText(const Comparison& comparison) {
  std::string text;
  if (!comparison.differences.empty()) {
    TextTable table({{"old", Alignment::right},
                     {"new", Alignment::right},
                     {"define"},
                     {"changes"},
                     {"details"}});
    for (const AssetDifference& asset : comparison.differences) {
      table.add({idCell(asset.oldId), idCell(asset.newId), defineCell(comparison, asset),
                 fmt::format("{}", fmt::join(changesOf(asset), ", ")),
                 detailsCell(comparison, asset)});
    }
    text = table.text() + '\n' + summaryText(comparison.differences);
  }
  if (comparison.rebuild == true) {
    text += "The header differs: code that includes it must be rebuilt.\n";
  }
  return text;
}

/// Opens one of the two banks. `option` names its header.
NamedBank openVersion(const Arguments& arguments, std::size_t operand, const char* option) {
  return withHeader(openBank(arguments.operands[operand]),
                    {.path = arguments.value(option), .none = arguments.has("--no-header")});
}

/// Reports the defines that code with stored ids can't rely on any longer. Returns the exit code.
int checkIds(const Comparison& comparison, Output& output) {
  if (!comparison.older.header || !comparison.newer.header) {
    throw Failure("--ids needs the headers of both banks");
  }
  const std::vector<std::string> lines = brokenDefines(comparison.older, comparison.newer);
  for (const std::string& line : lines) {
    output.messages += line + '\n';
  }
  return lines.empty() ? exitYes : exitNo;
}

int runDiff(const Arguments& arguments, Output& output) {
  Comparison comparison{.older = openVersion(arguments, 0, "--old-header"),
                        .newer = openVersion(arguments, 1, "--new-header")};
  int code = exitYes;
  if (arguments.has("--ids")) {
    code = checkIds(comparison, output);
  }
  comparison.differences = findDifferences(comparison.older, comparison.newer);
  comparison.rebuild = needsRebuild(comparison.older, comparison.newer);
  output.results =
      arguments.has("--json") ? comparisonAsJson(comparison) : comparisonAsText(comparison);
  if (!arguments.has("--ids") && !comparison.differences.empty()) {
    code = exitNo;
  }
  return code;
}

}  // namespace

Command diffCommand() {
  return {
      .name = "diff",
      .operands = {.synopsis = "OLD NEW", .fewest = 2, .most = 2, .completion = Completion::bank},
      .summary = "Compare two versions of a bank",
      .description =
          "Matches the assets of the two banks by define; those left over by content, equal ones "
          "in the order of their ids; and those still left over by id. Prints one line for each "
          "asset that differs, and a line with their number. An asset is added, removed, moved "
          "(it has another id), changed (its type, bytes or parameters) or renamed (it has "
          "another define), or several of these. An asset in the place of another one, by id, is "
          "renamed and changed.\n\n"
          "Prints nothing, and exits with 0, if all assets are the same; exits with 1 if one "
          "differs. A last line says that code that includes the bank's header must be rebuilt: "
          "the header that the new bank asks for differs from the old one in more than its time "
          "stamp. That line can appear alone, and is no difference of the banks. Without both "
          "headers only the sizes in them are compared.\n\n"
          "--ids is for saves and levels that hold ids. It changes the exit code alone: 1 if a "
          "define has another id in the new bank or is gone, which is reported on standard error, "
          "else 0. It needs both headers.",
      .example = "tavkit diff --ids released/sfx.tvb sfx.tvb",
      .options =
          {
              {.names = "--old-header",
               .value = "FILE",
               .help = "Read OLD's defines from FILE instead of the header next to it",
               .completion = Completion::file},
              {.names = "--new-header",
               .value = "FILE",
               .help = "Read NEW's defines from FILE instead of the header next to it",
               .completion = Completion::file},
              {.names = "--no-header", .help = "Use no header that isn't named: match by content"},
              {.names = "--ids", .help = "Exit with 1 only if a define has another id or is gone"},
              {.names = "--json", .help = "Print one JSON document"},
          },
      .run = runDiff,
  };
}

}  // namespace tavrel::kit
