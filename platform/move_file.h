// Renames a file within a folder, over an existing file or not.
#pragma once

#include <string>
#include <system_error>

namespace tavrel {

/// Gives the file at `from` the path `to`. What is there, a link itself included, is replaced at
/// once if `replaces` is true, else it is an error. Windows refuses this while a program has the
/// old file open; it is tried again for a second there. Returns the error of the host, if any.
std::error_code moveFile(const std::string& from, const std::string& to, bool replaces);

}  // namespace tavrel
