// Help texts of the command line, made from the table of commands.
#pragma once

#include <string>

#include "kit/frame/command.h"

namespace tavrel::kit {

/// Returns the program's usage and its commands.
std::string programHelp();

/// Returns a command's usage, options and example.
std::string commandHelp(const Command& command);

/// Returns the usage of a command: "tavkit list [OPTION ...] BANK".
std::string usage(const Command& command);

/// The options that every command has.
const std::vector<CommandOption>& commonOptions();

/// Returns the long name of an option: "--output" for "-o,--output", "-C" where there is none.
std::string longName(const CommandOption& option);

/// Returns the names and the value of an option as a reader types them: "-o, --output DIR".
std::string displayName(const CommandOption& option);

}  // namespace tavrel::kit
