#include "kit/extract/script_plan.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "compiler/script_language.h"
#include "kit/check/script_keywords.h"
#include "kit/extract/script_block.h"
#include "kit/extract/script_naming.h"
#include "kit/extract/script_place.h"
#include "kit/extract/targets.h"
#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

namespace fs = std::filesystem;

std::string label(const NamedBank& bank, std::uint32_t id) {
  const std::string& define = bank.defines[id];
  return define.empty() ? fmt::format("asset {}", id)
                        : fmt::format("{} (asset {})", displayText(define), id);
}

/// Returns the names that files next to the script can't have.
std::vector<std::string> reservedNames(const ScriptPlace& place) {
  if (!place.folder.empty()) {
    return {};
  }
  return {fs::path(place.path).filename().string(), place.bankName, headerName(place.bankName)};
}

/// Returns a file's name in the script. One that is a keyword gets a folder, so that it isn't taken
/// for the keyword.
std::string wordOf(const ScriptPlace& place, const std::string& name) {
  const bool isWord = isKeyword(name, kAssetEnd) || beginsStatement(name) || isOption(name);
  return (place.folder.empty() && isWord ? ".\\" : place.folder) + name;
}

/// Returns what won't be the same about an asset; the empty text if nothing.
std::string difference(const NamedBank& bank, const std::string& prefix, const ScriptAsset& asset) {
  std::string text;
  if (asset.likeness == Likeness::otherBytes) {
    text = ", and its compressed bytes differ: samples were clamped when it was first compressed";
  }
  if (!keepsDefine(bank, prefix, asset.id, asset.name)) {
    text += fmt::format(", and its define becomes {}",
                        displayText(defineOfFile(prefix, asset.name.inScript)));
  }
  return text.substr(std::min<std::size_t>(text.size(), std::string_view(", and ").size()));
}

ExtractedFile fileOf(const ScriptAsset& asset, const std::string& folder) {
  return {.id = asset.id,
          .name = asset.name.onDisk,
          .path = (fs::path(folder) / asset.name.onDisk).string(),
          .wave = asset.source.wave};
}

/// Lets the tool make each asset that a statement makes. Reports the others.
std::vector<ScriptAsset> planAssets(const ScriptContext& context,
                                    const std::vector<std::uint32_t>& ids,
                                    std::vector<std::string>& notes) {
  std::vector<ScriptAsset> assets;
  for (const std::uint32_t id : ids) {
    auto asset = planAsset(context, id);
    if (asset) {
      assets.push_back(std::move(*asset));
    } else {
      notes.push_back(fmt::format("{} is left out: no statement of a script makes it",
                                  label(context.bank, id)));
    }
  }
  return assets;
}

std::uint64_t totalBytes(const NamedBank& bank, const std::vector<std::uint32_t>& ids) {
  std::uint64_t bytes = 0;
  for (const std::uint32_t id : ids) {
    bytes += bank.assets()[id].size;
  }
  return bytes;
}

}  // namespace

ScriptPlan planScript(NamedBank& bank, const std::vector<std::uint32_t>& ids,
                      const ExtractionRequest& request, const std::string& path) {
  const ScriptPlace place = scriptPlace(bank, request, path);
  checkTarget(path, bank, request.replaces);
  Progress progress(totalBytes(bank, ids));
  const ScriptContext context{bank, request.channels, progress};
  ScriptPlan plan;
  std::vector<ScriptAsset> assets = planAssets(context, ids, plan.notes);
  nameFiles(context, place.prefix, reservedNames(place), assets);
  plan.script = scriptStart(place);
  for (const ScriptAsset& asset : assets) {
    if (asset.hasOwnFile) {
      plan.files.push_back(fileOf(asset, request.folder));
      checkTarget(plan.files.back().path, bank, request.replaces);
    }
    const std::string text = difference(bank, place.prefix, asset);
    if (!text.empty()) {
      plan.notes.push_back(
          fmt::format("{} can't come out the same: {}", label(bank, asset.id), text));
    }
    plan.script +=
        '\n' + blockText(bank.assets()[asset.id], wordOf(place, asset.name.inScript)).value_or("");
  }
  plan.script += fmt::format("\n{}\n", kScriptEnd);
  return plan;
}

}  // namespace tavrel::kit
