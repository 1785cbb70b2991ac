#pragma once

#include <cstdint>
#include <vector>

#include "kit/bank/bank_file.h"

namespace tavrel::kit {

/// Returns the assets that have the same bytes as others, in groups of ids. Empty ones don't count.
/// Throws Failure if a blob can't be read.
std::vector<std::vector<std::uint32_t>> duplicates(BankFile& bank);

}  // namespace tavrel::kit
