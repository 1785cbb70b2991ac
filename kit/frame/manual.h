// The man page and the completions of tavkit, made from the table of commands, and the page of
// the codes of check.
#pragma once

#include <string>

namespace tavrel::kit {

/// Returns docs/tavkit.1, in the mdoc language.
std::string manualPage();

/// Returns docs/check_codes.md: what `tavkit explain` says of each code.
std::string pageOfCodes();

/// Returns the completion for bash.
std::string bashCompletion();

/// Returns the completion for zsh.
std::string zshCompletion();

}  // namespace tavrel::kit
