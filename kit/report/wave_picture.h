// What the report shows of a wave beside what is in the bank's table.
#pragma once

#include <tavrel/bank.h>

#include "kit/frame/json.h"
#include "kit/quality/wave_quality.h"

namespace tavrel::kit {

/// Returns levels, peaks and the seam of the loop. With the source of a compressed wave,
/// which has no samples for others, also the peaks of its samples and of the error. The bytes of
/// `wave` must be in memory, and its width must be 4, 8 or 16 bits.
Json wavePicture(const tavrel_wave& wave, const SourceSound& source);

}  // namespace tavrel::kit
