// What is in a folder. The standard library has this too, but ends the program where its iterator
// can't get memory.
#pragma once

#include <string>
#include <system_error>
#include <vector>

namespace tavrel {

/// Sets `names` to the names of all that is in the folder at `path`, sorted. Returns the error of
/// the host, if any; `names` then has what was found before. Throws std::bad_alloc if memory runs
/// out, and nothing else.
std::error_code listFolder(const char* path, std::vector<std::string>& names);

}  // namespace tavrel
