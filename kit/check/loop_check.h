// The place of a loop where it wraps.
#pragma once

#include "kit/check/sound_check.h"

namespace tavrel::kit {

/// Adds a problem if the sound jumps from the last sample of its loop, which lies inside the sound,
/// to the first.
void checkWrap(const LoadedSound& sound, BlockFindings& findings);

}  // namespace tavrel::kit
