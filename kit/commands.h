// The table of commands. A new command is a source file, a function here and a row in commands.cpp.
#pragma once

#include <vector>

#include "kit/frame/command.h"

namespace tavrel::kit {

/// Returns all commands in the order of the help.
const std::vector<Command>& commands();

Command buildCommand();
Command checkCommand();
Command depsCommand();
Command diffCommand();
Command explainCommand();
Command extractCommand();
Command listCommand();
Command newCommand();
Command qualityCommand();
Command reportCommand();
Command showCommand();
Command verifyCommand();

}  // namespace tavrel::kit
