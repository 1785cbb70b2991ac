// The version of this build. CMake makes its source from version.cpp.in, so that nothing else is
// built again when the commit changes.
#pragma once

namespace tavrel::kit {

/// Returns the version alone, such as "1.82.0".
const char* versionNumber();

/// Returns the version with the first digits of the commit, if that is known:
/// "1.82.0 (0123456789ab)".
const char* versionWithCommit();

}  // namespace tavrel::kit
