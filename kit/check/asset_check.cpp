#include "kit/check/asset_check.h"

#include <fmt/format.h>

#include <new>
#include <string_view>

#include "compiler/names.h"
#include "compiler/wave_rules.h"
#include "foundation/disk_file.h"
#include "kit/check/block_findings.h"
#include "kit/check/opened_names.h"
#include "kit/check/sequence_check.h"
#include "kit/check/sound_check.h"
#include "kit/check/unreadable_file.h"
#include "kit/check/wave_check.h"
#include "kit/frame/required_text.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"
#include "samples/wave_file.h"

namespace tavrel::kit {

namespace {

bool isMissing(const std::string& name) { return kindUnder(name) == PathKind::missing; }

void checkOpaque(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings) {
  DiskFile disk(modeRead, asset.openedPath.c_str(), "");
  ByteBlock bytes;
  std::uint32_t size = 0;
  switch (disk.readImage(bytes, size)) {
    case DiskFile::WholeRead::failed:
      return reportUnread(asset.openedName, folders, findings);
    case DiskFile::WholeRead::noMemory:
      throw std::bad_alloc();
    case DiskFile::WholeRead::complete:
      break;
  }
  asset.isStored = true;
  asset.size = size;
  if (size == 0) {
    findings.addAtFile("empty-asset", "the file has 0 bytes");
  }
}

void checkFile(CheckedAsset& asset, bool isAiff, FolderNames& folders, BlockFindings& findings) {
  switch (asset.block->row->kind) {
    case kindWave:
      isAiff ? checkAiff(asset, folders, findings) : checkWave(asset, folders, findings);
      return checkSoundOptions(asset, findings);
    case kindMidi:
      return checkSequence(asset, folders, findings);
    default:
      return checkOpaque(asset, folders, findings);
  }
}

/// Sets the name of the asset. Returns false if it would be too long.
bool nameAsset(std::string_view stem, std::string_view extension, CheckedAsset& asset,
               BlockFindings& findings) {
  AssetData::Name name{};
  if (assetName(stem, extension, name)) {
    asset.name = name.data();
    return true;
  }
  findings.addAtFile("long-name",
                     fmt::format("the name of the asset would have {} characters, {} at most fit",
                                 stem.size() + 1 + extension.size(), AssetData::kLongestName),
                     "Give the file a shorter name");
  return false;
}

/// Checks the places where the tool uses a part of the name. `used` is the extension that it uses.
void checkCut(const CheckedAsset& asset, std::string_view name, std::string_view used,
              BlockFindings& findings) {
  const std::size_t dot = name.find('.');
  const std::string_view extension = dot == std::string_view::npos ? "" : name.substr(dot + 1);
  const bool isDefineCut =
      extension.size() > used.size() && extension.find('/') == std::string_view::npos;
  if (asset.openedName != findings.fileName() && !isMissing(asset.openedName)) {
    findings.addAtFile("name-cut", fmt::format("tavrel reads {} instead", asset.openedName),
                       fmt::format("Write {}", asset.openedName));
  } else if (isDefineCut) {
    findings.addAtFile("name-cut",
                       fmt::format("of the extension {} the define has {} alone", extension, used),
                       "Rename the file");
  }
}

void checkCase(const CheckedAsset& asset, FolderNames& folders, BlockFindings& findings) {
  const std::string spelling = folders.spelling(asset.openedName);
  if (spelling != asset.openedName) {
    const ScriptWord& file = *findings.block().file;
    const bool isWholeName = asset.openedName == file.text;
    findings.addAtFile("case-differs", fmt::format("the file is called {}", spelling),
                       fmt::format("Write {}", spelling),
                       isWholeName ? std::optional(file.replacedBy(spelling)) : std::nullopt);
  }
}

}  // namespace

CheckedAsset checkAsset(const ScriptBlock& block, FolderNames& folders, Findings& findings) {
  CheckedAsset asset{.block = &block, .openedName = openedName(block)};
  asset.openedPath = hostPath(asset.openedName.c_str());
  BlockFindings blockFindings(block, findings);
  FileName name;
  name.splitNameAndPath(block.file->text.c_str());
  const std::string extension = requiredText(name.getExtensionOnly());
  const bool isAiff = isAiffExtension(extension.c_str());
  checkFile(asset, isAiff, folders, blockFindings);
  asset.isMissing = !asset.isStored && isMissing(block.file->text) && isMissing(asset.openedName);
  checkCut(asset, requiredText(name.name.get()), extension, blockFindings);
  checkCase(asset, folders, blockFindings);
  asset.isStored = nameAsset(requiredText(name.getNameOnly()), extension, asset, blockFindings) &&
                   asset.isStored;
  asset.size = asset.isStored ? asset.size : 0;
  asset.paddedSize = block.row->padding == Padding::toMultipleOf4
                         ? roundUp(asset.size, kBlobAlignment)
                         : asset.size;
  return asset;
}

}  // namespace tavrel::kit
