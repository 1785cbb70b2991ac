// Words of commands that a user may paste into a shell. A name never becomes syntax of the shell.
#pragma once

#include <string>
#include <string_view>

namespace tavrel::kit {

/// Returns `word` as one word of a shell's command, in quotes if it must be.
std::string shellWord(std::string_view word);

}  // namespace tavrel::kit
