#include "kit/check/bank_check.h"

#include <fmt/format.h>

#include <algorithm>

#include "compiler/bank_format.h"
#include "compiler/names.h"
#include "kit/check/bank_checks.h"
#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

AssetList storedAssets(const std::vector<CheckedAsset>& assets) {
  AssetList stored;
  for (const CheckedAsset& asset : assets) {
    if (asset.isStored) {
      stored.push_back(&asset);
    }
  }
  return stored;
}

/// Returns the assets that get a define when all files can be read. The name of a file that is
/// missing is likely to change.
AssetList namedAssets(const std::vector<CheckedAsset>& assets) {
  AssetList named;
  for (const CheckedAsset& asset : assets) {
    if (!asset.name.empty() && !asset.isMissing) {
      named.push_back(&asset);
    }
  }
  return named;
}

void addAtFile(const CheckedAsset& asset, const char* code, std::string_view message,
               std::string hint, Findings& findings) {
  const ScriptWord& file = *asset.block->file;
  findings.add(code, file.offset, fmt::format("{}: {}", file.text, message), std::move(hint));
}

void checkCount(const AssetList& assets, Findings& findings) {
  if (assets.size() > kMostAssets) {
    addAtFile(
        *assets[kMostAssets], "too-many-assets",
        fmt::format("is asset number {}, a bank has {} at most", kMostAssets + 1, kMostAssets),
        "Move the rest to a second bank", findings);
  }
}

/// Returns the length of the bank. Checks that it fits.
std::uint64_t checkLength(const AssetList& assets, Findings& findings) {
  std::uint64_t blobBytes = 0;
  std::uint32_t count = 0;
  std::uint64_t length = bankLength(count, blobBytes);
  for (const CheckedAsset* asset : assets) {
    const bool fitWithoutIt = length <= kLongestBank;
    blobBytes += asset->paddedSize;
    length = bankLength(++count, blobBytes);
    if (fitWithoutIt && length > kLongestBank) {
      addAtFile(*asset, "bank-too-long",
                fmt::format("makes the bank {} bytes long, {} at most fit", length, kLongestBank),
                "Move the rest to a second bank, or compress more sounds", findings);
    }
  }
  return length;
}

/// Checks the offsets of assets after one that isn't padded.
void checkAlignment(const AssetList& assets, Findings& findings) {
  std::uint64_t offset = 0;  // from the first blob, which is aligned
  const CheckedAsset* before = nullptr;
  for (const CheckedAsset* asset : assets) {
    if (offset % kBlobAlignment != 0 && before->paddedSize % kBlobAlignment != 0) {
      addAtFile(*asset, "unaligned",
                fmt::format("its bytes begin at an offset that isn't a multiple of {}: they follow "
                            "the {} bytes of {}, which aren't padded",
                            kBlobAlignment, before->size, before->block->file->text),
                fmt::format("List {} last", before->block->file->text), findings);
    }
    offset += asset->paddedSize;
    before = asset;
  }
}

/// Checks that a game finds the bank under the name that the header has for it.
void checkBankName(const BankNames& names, Findings& findings) {
  const std::string inHeader = names.baseName + kBankExtension;
  if (inHeader != names.word->text) {
    findings.add("bank-name", names.word->offset,
                 fmt::format("{}: {} in the header will be {}", names.word->text,
                             names.define(kFileNameDefine), inHeader),
                 betterBankName(names.word->text == "=" ? "=" : inHeader));
  }
}

/// Returns the end of a sentence that names the largest assets: "; its largest assets: a.wav (20
/// bytes), b.wav (10 bytes)". Returns nothing for a bank without assets.
std::string largestAssets(AssetList assets) {
  constexpr std::size_t kNamed = 5;
  std::stable_sort(assets.begin(), assets.end(),
                   [](const CheckedAsset* a, const CheckedAsset* b) { return a->size > b->size; });
  assets.resize(std::min(kNamed, assets.size()));
  const char* const label = assets.size() == 1 ? "; its only asset:" : "; its largest assets:";
  std::string list;
  for (const CheckedAsset* asset : assets) {
    list += fmt::format("{} {} ({})", list.empty() ? label : ",", asset->block->file->text,
                        countText(asset->size, "byte"));
  }
  return list;
}

void checkBudget(const BankNames& names, const AssetList& assets, std::uint64_t length,
                 std::uint64_t most, Findings& findings) {
  if (length > most) {
    findings.add("over-budget", names.word->offset,
                 fmt::format("{}: the bank has {} bytes, {} more than the {} that --max-bytes "
                             "allows{}",
                             names.word->text, length, length - most, most, largestAssets(assets)),
                 "Compress or leave out some of these");
  }
}

}  // namespace

void checkBank(const ScriptModel& script, const std::vector<CheckedAsset>& assets,
               const RunPlan& plan, std::optional<std::uint64_t> mostBytes, Findings& findings) {
  const BankNames names = nameBank(script, plan);
  const AssetList stored = storedAssets(assets);
  checkCount(stored, findings);
  const std::uint64_t length = checkLength(stored, findings);
  checkAlignment(stored, findings);
  checkDefines(names, namedAssets(assets), findings);
  checkFiles(names, plan, assets, findings);
  if (names.word != nullptr) {
    checkBankName(names, findings);
    checkBudget(names, stored, length, mostBytes.value_or(length), findings);
  }
}

}  // namespace tavrel::kit
