// What a file's extension says of the asset that it is meant to be.
#pragma once

#include <string>

#include "compiler/bank_format.h"

namespace tavrel::kit {

/// Returns the type of a file whose content shows nothing of its kind: a damaged sound isn't an
/// opaque asset. `path` is one of this host or of a script.
AssetType usualType(const std::string& path);

}  // namespace tavrel::kit
