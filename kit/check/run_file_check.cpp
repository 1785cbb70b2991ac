// Checks that the files of a run are different ones.
#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <map>

#include "kit/check/bank_checks.h"
#include "kit/check/run_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Reports an asset that is the file of one before it. `files` are those of `assets`.
void checkRepeats(const std::vector<CheckedAsset>& assets, const std::vector<RunFile>& files,
                  Findings& findings) {
  std::map<FileIdentity, std::string> names;
  for (std::size_t i = 0; i < assets.size(); ++i) {
    if (!assets[i].isStored || !files[i].identity) {
      continue;
    }
    const ScriptWord& file = *assets[i].block->file;
    const auto [first, isNew] = names.emplace(*files[i].identity, file.text);
    if (!isNew) {
      findings.add("same-file-twice", file.offset,
                   fmt::format("{}: the file is in the bank already, listed as {}", file.text,
                               first->second),
                   "Remove one of the two blocks");
    }
  }
}

/// One of the run's own files.
struct OwnFile {
  const char* what = nullptr;
  RunFile file;
};

void checkOverlaps(const ScriptWord& bank, const std::array<OwnFile, 3>& own,
                   const std::vector<CheckedAsset>& assets, const std::vector<RunFile>& files,
                   Findings& findings) {
  const auto add = [&](const OwnFile& file, const std::string& other) {
    findings.add(
        "output-overlap", bank.offset,
        fmt::format("{}: {} and {} are one file, {}", bank.text, file.what, other, file.file.path),
        "Name the bank differently, or put it into another folder");
  };
  for (std::size_t i = 0; i < own.size(); ++i) {
    const OwnFile& file = own[i];
    for (std::size_t other = i + 1; other < own.size(); ++other) {
      if (isSame(file.file, own[other].file)) {
        add(file, own[other].what);
      }
    }
    const auto asset = std::find_if(files.begin(), files.end(),
                                    [&file](const RunFile& one) { return isSame(file.file, one); });
    if (asset != files.end()) {
      const auto index = static_cast<std::size_t>(asset - files.begin());
      add(file, fmt::format("the asset {}", assets[index].block->file->text));
    }
  }
}

}  // namespace

void checkFiles(const BankNames& names, const RunPlan& plan,
                const std::vector<CheckedAsset>& assets, Findings& findings) {
  std::vector<RunFile> files;
  files.reserve(assets.size());
  for (const CheckedAsset& asset : assets) {
    files.push_back(runFile(asset.openedPath));
  }
  checkRepeats(assets, files, findings);
  if (names.word != nullptr) {
    checkOverlaps(*names.word,
                  {{{"the bank", runFile(hostPath(names.bankPath.c_str()))},
                    {"the header", runFile(hostPath(names.headerPath.c_str()))},
                    {"the script", runFile(hostPath(plan.scriptPath.c_str()))}}},
                  assets, files, findings);
  }
}

}  // namespace tavrel::kit
