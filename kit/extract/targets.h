// Whether the files of an extraction can be written over what is there.
#pragma once

#include <string>

#include "kit/bank/named_bank.h"

namespace tavrel::kit {

/// Throws Failure if no file can be written to `path`: there is one already and `replaces` is
/// false, or it is a folder, the bank or its header.
void checkTarget(const std::string& path, const NamedBank& bank, bool replaces);

}  // namespace tavrel::kit
