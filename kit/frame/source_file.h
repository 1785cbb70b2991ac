// Reads the files that a user names. Failures are thrown with the file's name and the reason.
#pragma once

#include <string>

namespace tavrel::kit {

/// Throws Failure unless there is a file with a size at `path`: no folder, pipe or device.
void requireRegularFile(const std::string& path);

/// Returns the content of a file. Throws Failure if it can't be read.
std::string readFile(const std::string& path);

}  // namespace tavrel::kit
