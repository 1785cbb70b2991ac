// The options of every command that checks scripts, and what they mean.
#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "kit/check/check_script.h"
#include "kit/frame/arguments.h"
#include "kit/frame/command.h"

namespace tavrel::kit {

/// The options, beside those of every command with an operand SCRIPT.
const std::vector<CommandOption>& checkOptionRows();

/// Returns what is asked for. Throws Failure for values that mean nothing.
CheckOptions checkOptions(const Arguments& arguments);

/// Returns the form of the report that is asked for. Throws Failure for two forms.
std::string formOf(const Arguments& arguments);

/// Returns the report of all scripts in a form, for `stream`, which may show colours.
std::string formatted(const std::vector<CheckedScript>& scripts, const std::string& form,
                      std::FILE* stream);

/// Returns true if the scripts have an error, or a warning that counts as one.
bool stops(const std::vector<CheckedScript>& scripts, const Arguments& arguments);

}  // namespace tavrel::kit
