// How the host finds the files that scripts name, and what stands under a name.
// Scripts may separate folders with backslashes whatever the host does.
#pragma once

#include <string>

namespace tavrel {

/// What a path leads to. A pipe, and the devices and sockets of `other`, have no size to ask for.
enum class PathKind { missing, file, directory, pipe, other };

/// The path under which the host finds the file that a script calls `name`.
///
/// Where folders are separated by slashes, a name with backslashes is used as it stands if a file
/// of that very name exists, or if the folder that it would name with slashes doesn't; otherwise
/// its backslashes become slashes. Elsewhere the name is given back unchanged.
/// Throws std::bad_alloc when memory is short, and nothing else.
std::string hostPath(const char* name);

/// What stands under `path`, links followed. A path that can't be looked at counts as missing.
PathKind pathKind(const char* path);

}  // namespace tavrel
