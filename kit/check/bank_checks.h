// The parts of the check of the whole bank. Each adds what is wrong to `findings`.
#pragma once

#include <string>
#include <vector>

#include "kit/check/asset_check.h"
#include "kit/check/bank_names.h"
#include "kit/check/diagnostic.h"

namespace tavrel::kit {

/// Some of the script's assets, in the order of their blocks.
using AssetList = std::vector<const CheckedAsset*>;

/// Checks that all defines, the guard too, are identifiers of C, and that each is there once.
void checkDefines(const BankNames& names, const AssetList& assets, Findings& findings);

/// Returns the advice to rename the bank, with a name like `name` that is good in scripts and C.
std::string betterBankName(std::string name);

/// Checks that the bank, its header, the script and the assets are different files. `assets` are
/// those of all blocks: a file that can't be stored can still be overwritten.
void checkFiles(const BankNames& names, const RunPlan& plan,
                const std::vector<CheckedAsset>& assets, Findings& findings);

}  // namespace tavrel::kit
