#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "kit/bank/named_bank.h"

namespace tavrel::kit {

/// Returns an asset's define without the bank's prefix; empty if it has none.
std::string_view defineWithoutPrefix(const NamedBank& bank, std::uint32_t id);

/// Returns the ids of the assets that `words` name, in ascending order and each once; all ids if
/// there are no words. A word is an id in decimal digits, or a define with or without the bank's
/// prefix, in any case. Throws Failure for a word that names no asset.
std::vector<std::uint32_t> chosenAssets(const NamedBank& bank,
                                        const std::vector<std::string>& words);

}  // namespace tavrel::kit
