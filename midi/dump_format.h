// Formatted text for the dump of a MIDI file, without allocating.
#pragma once

#include <span>

namespace tavrel {

/// Writes a terminated text into `text`, which must have room for the longest result.
[[gnu::format(printf, 2, 3)]] void formatInto(std::span<char> text, const char* format, ...);

/// Prints a piece of a line, of at most 159 characters, on standard output.
[[gnu::format(printf, 1, 2)]] void printPiece(const char* format, ...);

}  // namespace tavrel
