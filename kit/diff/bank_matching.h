// Finds for each asset of a bank its counterpart in another version of the bank.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "kit/bank/named_bank.h"

namespace tavrel::kit {

/// Ids of an asset in both banks. An asset that was added or removed has one of them.
struct AssetPair {
  std::optional<std::uint32_t> oldId{};
  std::optional<std::uint32_t> newId{};
  bool isMatchedByContent = false;  ///< so the blobs are equal
};

/// Matches assets by define; those left over by content, equal blobs in the order of their ids; and
/// those still left over by id. Returns each asset of the two banks once: those of the old bank by
/// id, then the added ones by id. Throws Failure if a blob can't be read.
std::vector<AssetPair> matchAssets(NamedBank& older, NamedBank& newer);

}  // namespace tavrel::kit
