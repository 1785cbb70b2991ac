// The values of options: whether they are written as the tool reads them.
#pragma once

#include "kit/check/script_model.h"

namespace tavrel::kit {

/// Checks how the value of an option of a block is written. Adds what is wrong to `findings`.
void checkValue(const ScriptBlock& block, const Option& option, const ScriptWord& value,
                Findings& findings);

}  // namespace tavrel::kit
