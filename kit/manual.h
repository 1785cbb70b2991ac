// The man page and the completions of tavkit, made from the table of commands.
#pragma once

#include <string>

namespace tavrel::kit {

/// Returns docs/tavkit.1, in the mdoc language.
std::string manualPage();

/// Returns the completion for bash.
std::string bashCompletion();

/// Returns the completion for zsh.
std::string zshCompletion();

}  // namespace tavrel::kit
