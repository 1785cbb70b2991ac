#include "kit/extract/extraction_plan.h"

#include <fmt/format.h>

#include <filesystem>

#include "kit/bank/asset_choice.h"
#include "kit/extract/extracted_names.h"
#include "kit/frame/failure.h"
#include "platform/host_path.h"

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
    if (!fitsWaveFile(file.wave->format, file.wave->sampleBytes)) {
      throw Failure(fmt::format("{} is too long for a WAV file; use --raw", name));
    }
  }
  return file;
}

/// Returns true if a file has that name, which is one that the bank or its header was opened by.
bool isSameFile(const std::string& path, const std::string& name) {
  std::error_code isMissing;
  return !name.empty() && fs::equivalent(path, hostPath(name.c_str()), isMissing);
}

/// Throws Failure if the file can't be written over what is there.
void checkTarget(const ExtractedFile& file, const NamedBank& bank,
                 const ExtractionRequest& request) {
  std::error_code ignored;
  const fs::file_status status = fs::symlink_status(file.path, ignored);
  if (!fs::exists(status)) {
    return;
  }
  if (!request.replaces) {
    throw Failure(fmt::format("{} exists already; --force replaces it", file.path));
  }
  if (!fs::is_regular_file(status) && !fs::is_symlink(status)) {
    throw Failure(fmt::format("can't replace {}: it isn't a file", file.path));
  }
  if (fs::is_regular_file(status) &&
      (isSameFile(file.path, bank.file.path) || isSameFile(file.path, bank.headerPath))) {
    throw Failure(fmt::format("can't replace {}: it is the bank or its header", file.path));
  }
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
    checkTarget(file, bank, request);
  }
  return files;
}

}  // namespace tavrel::kit
