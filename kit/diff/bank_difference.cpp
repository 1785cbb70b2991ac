#include "kit/diff/bank_difference.h"

#include <fmt/format.h>

#include <map>
#include <string_view>
#include <utility>

#include "kit/bank/bank_layout.h"
#include "kit/bank/blob_content.h"
#include "kit/diff/bank_matching.h"
#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

/// Compares an asset that both banks have. Returns nothing if it is the same.
std::optional<AssetDifference> compare(NamedBank& older, NamedBank& newer, const AssetPair& pair) {
  const tavrel_asset& before = older.assets()[*pair.oldId];
  const tavrel_asset& after = newer.assets()[*pair.newId];
  AssetDifference difference{.oldId = pair.oldId, .newId = pair.newId};
  for (std::size_t i = 0; i < std::size(before.parameters); ++i) {
    if (before.parameters[i] != after.parameters[i]) {
      difference.parameters.push_back(i);
    }
  }
  difference.hasOtherBytes =
      !pair.isMatchedByContent && !equalBlobs(older.file, before, newer.file, after);
  difference.isMoved = pair.oldId != pair.newId;
  difference.isChanged =
      before.type != after.type || difference.hasOtherBytes || !difference.parameters.empty();
  difference.isRenamed =
      older.header && newer.header && older.defines[*pair.oldId] != newer.defines[*pair.newId];
  const bool isSame = !difference.isMoved && !difference.isChanged && !difference.isRenamed;
  return isSame ? std::nullopt : std::optional(difference);
}

/// The values of PREFIX_BANK_DATA_SIZE and PREFIX_BANK_HEADER_SIZE as a header states them.
using Sizes = std::pair<std::optional<std::string>, std::optional<std::string>>;

Sizes sizesOf(const BankFile& bank) {
  return {std::to_string(dataBytes(bank)), std::to_string(headerBytes(bank))};
}

/// Returns whether the two headers mean the same to code, their sizes aside.
bool declareTheSame(const BankHeader& first, const BankHeader& second) {
  return first.guardTested == second.guardTested && first.guardDefined == second.guardDefined &&
         first.prefix == second.prefix && first.fileName == second.fileName &&
         first.assets == second.assets;
}

/// Returns the ids of the assets that a bank and its header have, by define.
std::map<std::string_view, std::uint32_t> idsByDefine(const NamedBank& bank) {
  std::map<std::string_view, std::uint32_t> ids;
  for (const HeaderDefine& define : bank.header->assets) {
    const auto id = defineNumber(define.value);
    if (id && *id < bank.assets().size()) {
      ids.emplace(define.name, *id);
    }
  }
  return ids;
}

}  // namespace

std::vector<AssetDifference> findDifferences(NamedBank& older, NamedBank& newer) {
  std::vector<AssetDifference> differences;
  for (const AssetPair& pair : matchAssets(older, newer)) {
    if (!pair.oldId || !pair.newId) {
      differences.push_back({.oldId = pair.oldId, .newId = pair.newId});
    } else if (const auto difference = compare(older, newer, pair)) {
      differences.push_back(*difference);
    }
  }
  return differences;
}

std::optional<bool> needsRebuild(const NamedBank& older, const NamedBank& newer) {
  const Sizes asked = sizesOf(newer.file);
  const bool headerHasOtherSizes =
      older.header && Sizes(older.header->dataSize, older.header->headerSize) != asked;
  if (headerHasOtherSizes || sizesOf(older.file) != asked) {
    return true;
  }
  if (!older.header || !newer.header) {
    return std::nullopt;
  }
  return !declareTheSame(*older.header, *newer.header);
}

std::vector<std::string> brokenDefines(const NamedBank& older, const NamedBank& newer) {
  std::vector<std::string> lines;
  const auto newIds = idsByDefine(newer);
  for (const auto& [define, id] : idsByDefine(older)) {
    const auto found = newIds.find(define);
    if (found == newIds.end()) {
      lines.push_back(fmt::format("{}, id {}, is gone", displayText(define), id));
    } else if (found->second != id) {
      lines.push_back(
          fmt::format("{} had id {} and has {}", displayText(define), id, found->second));
    }
  }
  return lines;
}

}  // namespace tavrel::kit
