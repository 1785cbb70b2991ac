// The options that every command with an operand SCRIPT has.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "kit/frame/arguments.h"
#include "kit/frame/command.h"

namespace tavrel::kit {

/// Where a run of the tool would read and write.
struct RunPlan {
  std::string scriptPath;                          ///< as it is opened
  std::string bankDirectory{}, headerDirectory{};  ///< with a separator at the end, or empty
  std::string prefix{};                            ///< HeaderPrefix, or empty
};

/// -C, --prefix, --bank-dir and --header-dir.
const std::vector<CommandOption>& scriptOptions();

/// The row of --script, for commands whose operand is a bank, with the given help.
CommandOption scriptOption(std::string help);

/// Throws Failure if an option is given that means nothing without --script.
void requireScriptFor(const Arguments& arguments);

/// Changes to the folder of -C. Must come before anything else is opened. Throws Failure if it
/// can't.
void changeDirectory(const Arguments& arguments);

/// Returns a path as whoever has started the command finds the file, outside the folder of -C.
std::string pathForUser(const std::string& path, const Arguments& arguments);

/// Returns what the options say for one script. Throws Failure for a prefix that is too long.
RunPlan planFor(const std::string& script, const Arguments& arguments);

}  // namespace tavrel::kit
