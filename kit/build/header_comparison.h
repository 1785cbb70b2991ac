// Whether a header must be replaced.
#pragma once

#include <string>

namespace tavrel::kit {

/// Returns true if the file at `path` is a generated header with this text, whatever its time
/// stamp.
bool isSameHeader(const std::string& path, const std::string& text);

}  // namespace tavrel::kit
