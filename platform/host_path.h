// Finds files under the names that scripts use, and returns the kind of a file. Scripts may
// separate folders with backslashes on every host.
#pragma once

#include <string>
#include <string_view>

namespace tavrel {

/// Kind of file under a path. Pipes, and the devices and sockets of `other`, have no size.
enum class PathKind { missing, file, directory, pipe, other };

/// The characters that end a folder's name in a path of the host.
extern const char* const kHostSeparators;

/// Returns the path under which the host finds the file that a script calls `name`.
///
/// On hosts that separate folders with slashes, backslashes become slashes if no file has exactly
/// this name and the folder named with slashes exists. Otherwise, and on other hosts, `name` is
/// returned unchanged. Throws std::bad_alloc if memory runs out, and nothing else.
std::string hostPath(const char* name);

/// Returns the kind of the file at `path`, with links followed; `missing` if it can't be examined.
PathKind pathKind(const char* path);

// Not used by the tool; for programs that write commands and links, such as tavkit.

/// Returns true if `path` starts with a drive, such as C:, on a host that has drives.
bool hasDrive(std::string_view path);

}  // namespace tavrel
