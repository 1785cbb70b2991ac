// The option --below of the commands that judge compression.
#pragma once

#include <optional>

#include "kit/frame/arguments.h"
#include "kit/frame/command.h"

namespace tavrel::kit {

/// Returns the row of --below, with the given help.
CommandOption belowOption(std::string help);

/// Returns the value of --below, in decibels, if it is given. Throws Failure if that is no number.
std::optional<double> qualityLimit(const Arguments& arguments);

}  // namespace tavrel::kit
