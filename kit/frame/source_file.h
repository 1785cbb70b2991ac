// The files that scripts and users name. Failures are thrown with the file's name and the reason.
#pragma once

#include <string>

#include "platform/file_cache.h"
#include "platform/host_path.h"

namespace tavrel::kit {

/// Returns the kind of the file that the host finds under a name of a script.
PathKind kindUnder(const std::string& name);

/// Throws Failure unless there is a file with a size at `path`: no folder, pipe or device.
void requireRegularFile(const std::string& path);

/// Throws Failure for a file that can't be opened or read.
[[noreturn]] void failToRead(const std::string& path);

/// Returns the bytes of a file. Throws Failure if it can't be read or has 4 GiB or more, and
/// std::bad_alloc if memory runs out.
FileCache::Entry readFileBytes(const std::string& path);

/// Returns the content of a file as text. Throws as readFileBytes does.
std::string readFile(const std::string& path);

}  // namespace tavrel::kit
