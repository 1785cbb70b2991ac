// The command line of tavkit, from its arguments to its exit code.
#pragma once

#include <string>
#include <vector>

#include "kit/frame/output.h"

namespace tavrel::kit {

/// Runs the command that `arguments`, without the program's name, ask for. Returns an `ExitCode`.
/// Every failure becomes a message and `exitFailed`, with no results. Throws std::bad_alloc only if
/// there is no memory for the message.
int runCommandLine(const std::vector<std::string>& arguments, Output& output);

/// As `runCommandLine`, then writes the output to the standard streams. Results that can't be
/// written are a failure too.
int runTavkit(int argumentCount, const char* const* arguments);

}  // namespace tavrel::kit
