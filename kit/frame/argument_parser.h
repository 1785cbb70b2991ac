// Turns the words of a command line into the options and operands of a command.
#pragma once

#include <string>
#include <vector>

#include "kit/frame/arguments.h"
#include "kit/frame/command.h"

namespace tavrel::kit {

/// Parses `words`, which follow the name of `command`. Options and operands can be in any order,
/// and after "--" there are operands alone. How many operands there are is not checked. Throws
/// Failure for an option that the command doesn't have, for a value that is missing or not one of
/// the option's words, and for the value of a flag.
Arguments parseArguments(const Command& command, std::vector<std::string> words);

}  // namespace tavrel::kit
