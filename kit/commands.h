// The table of commands. A new command is a source file, a function here and a row in commands.cpp.
#pragma once

#include <vector>

#include "kit/frame/command.h"

namespace tavrel::kit {

/// Returns all commands in the order of the help.
const std::vector<Command>& commands();

Command depsCommand();
Command diffCommand();
Command extractCommand();
Command listCommand();
Command showCommand();
Command qualityCommand();
Command newCommand();
Command verifyCommand();
Command checkCommand();
Command explainCommand();

}  // namespace tavrel::kit
