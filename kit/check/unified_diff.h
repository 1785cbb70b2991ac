// The difference between a text and what edits have made of it, as `diff -u` prints it. `patch -p0`
// and `git apply -p0` apply it.
#pragma once

#include <string>

#include "kit/check/edited_text.h"

namespace tavrel::kit {

/// Returns the unified diff of a file, or the empty string if nothing has changed. Lines are those
/// that end with LF.
std::string unifiedDiff(const std::string& path, const EditedText& text);

}  // namespace tavrel::kit
