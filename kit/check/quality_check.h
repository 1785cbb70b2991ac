// Check of what compression does to a sound.
#pragma once

#include "kit/check/asset_check.h"

namespace tavrel::kit {

/// Reports the sound of a block if it is compressed with a ratio below `lowest` decibels. Reads its
/// file again. Throws Failure if that fails.
void checkQuality(const CheckedAsset& asset, double lowest, Findings& findings);

}  // namespace tavrel::kit
