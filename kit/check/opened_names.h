// Which files a run of the tool reads.
#pragma once

#include <string>
#include <vector>

#include "kit/check/script_model.h"

namespace tavrel::kit {

/// Returns the name under which the statement of a block, which has a file, opens it.
std::string openedName(const ScriptBlock& block);

/// Reads a script, whatever its faults. Throws Failure if it can't be read.
ScriptModel modelOf(const std::string& scriptPath);

/// Returns the host's names of the files of all blocks, as the tool opens them, whether they are
/// there or not. Each is there once, in the order of the script.
std::vector<std::string> openedNames(const ScriptModel& script);

}  // namespace tavrel::kit
