// Checks of the whole: names, defines, and what becomes too long or too many.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "kit/check/asset_check.h"
#include "kit/frame/script_options.h"

namespace tavrel::kit {

/// Checks the bank and the header that the script makes of `assets`, which are those of its blocks
/// in their order. `mostBytes` is the longest bank that is allowed, if there is a limit. Adds what
/// is wrong to `findings`.
void checkBank(const ScriptModel& script, const std::vector<CheckedAsset>& assets,
               const RunPlan& plan, std::optional<std::uint64_t> mostBytes, Findings& findings);

}  // namespace tavrel::kit
