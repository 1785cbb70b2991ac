#include "kit/extract/extraction_plan.h"

#include <fmt/format.h>

#include <filesystem>

#include "kit/bank/asset_choice.h"
#include "kit/extract/extracted_names.h"
#include "kit/extract/targets.h"
#include "kit/frame/failure.h"

namespace tavrel::kit {

namespace {

namespace fs = std::filesystem;

/// Returns true if the asset becomes a WAV file. All other assets keep their bytes.
bool becomesWav(const tavrel_asset& asset, const ExtractionRequest& request) {
  return asset.type == TAVREL_WAVE && !request.isRaw && hasWaveFile(asset);
}

/// Returns the extension of an asset's file; empty for the define's own.
std::string extensionOf(const tavrel_asset& asset, const ExtractionRequest& request) {
  switch (asset.type) {
    case TAVREL_WAVE:
      return becomesWav(asset, request) ? "wav" : "raw";
    case TAVREL_SEQUENCE:
      return "mid";
    default:
      return "";
  }
}

/// Returns the file names of all assets by id: an asset's name doesn't depend on the choice.
std::vector<std::string> namesOf(const NamedBank& bank, const ExtractionRequest& request) {
  std::vector<NameRequest> requests;
  for (std::uint32_t id = 0; id < bank.assets().size(); ++id) {
    requests.push_back({.define = std::string(defineWithoutPrefix(bank, id)),
                        .extension = extensionOf(bank.assets()[id], request)});
  }
  return extractedNames(requests);
}

ExtractedFile fileOf(const tavrel_asset& asset, std::uint32_t id, const std::string& name,
                     const ExtractionRequest& request) {
  ExtractedFile file{
      .id = id, .name = name, .path = (fs::path(request.folder) / name).string(), .wave = {}};
  if (becomesWav(asset, request)) {
    file.wave = describeExport(asset, request.channels);
    if (!fitsItsFormat(*file.wave)) {
      throw Failure(fmt::format("{} is too long for a WAV file; use --raw", name));
    }
  }
  return file;
}

}  // namespace

std::vector<ExtractedFile> plannedFiles(const NamedBank& bank,
                                        const std::vector<std::uint32_t>& ids,
                                        const ExtractionRequest& request) {
  const std::vector<std::string> names = namesOf(bank, request);
  std::vector<ExtractedFile> files;
  files.reserve(ids.size());
  for (const std::uint32_t id : ids) {
    files.push_back(fileOf(bank.assets()[id], id, names[id], request));
  }
  for (const ExtractedFile& file : files) {
    checkTarget(file.path, bank, request.replaces);
  }
  return files;
}

}  // namespace tavrel::kit
