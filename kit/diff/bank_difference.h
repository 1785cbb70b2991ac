// What is different between two versions of a bank, and what that means for code that uses them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kit/bank/named_bank.h"

namespace tavrel::kit {

/// An asset that isn't the same in both banks. One that was added has no old id, one that was
/// removed no new one, and neither has any of the other changes.
struct AssetDifference {
  std::optional<std::uint32_t> oldId{};
  std::optional<std::uint32_t> newId{};
  bool isMoved = false;    ///< it has another id
  bool isChanged = false;  ///< its type, its bytes or a parameter
  bool isRenamed = false;  ///< it has another define
  bool hasOtherBytes = false;
  std::vector<std::size_t> parameters{};  ///< indices of those that changed
};

/// Returns the assets that differ: those of the old bank by id, then the added ones by id. Throws
/// Failure if a blob can't be read.
std::vector<AssetDifference> findDifferences(NamedBank& older, NamedBank& newer);

/// Returns whether code that includes the old bank's header must be rebuilt for the new bank: other
/// sizes, or anything else in the header that code sees. Nothing if that depends on a header that
/// isn't there.
std::optional<bool> needsRebuild(const NamedBank& older, const NamedBank& newer);

/// Returns a line for each define of the old bank that has another id in the new one or is gone.
/// Both banks must have a header.
std::vector<std::string> brokenDefines(const NamedBank& older, const NamedBank& newer);

}  // namespace tavrel::kit
