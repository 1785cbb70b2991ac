// What a standard stream can show.
#pragma once

#include <cstdio>

namespace tavrel {

/// Returns true if the stream is a terminal.
bool isTerminal(std::FILE* stream);

/// Returns true if the stream is a terminal that interprets escape sequences, after making it do so
/// where that has to be asked for.
bool interpretsEscapes(std::FILE* stream);

}  // namespace tavrel
