// Colours of results on a terminal.
#pragma once

#include <cstdio>
#include <string_view>

namespace tavrel::kit {

// Escape sequences: what follows is red and bold, or plain again.
constexpr std::string_view kRed = "\x1B[1;31m";
constexpr std::string_view kPlain = "\x1B[0m";

/// Returns true if the stream is a terminal and the environment variable NO_COLOR is empty or not
/// set.
bool showsColours(std::FILE* stream);

}  // namespace tavrel::kit
