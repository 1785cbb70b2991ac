// Unbuffered reads of standard input.
#pragma once

namespace tavrel {

/// Waits for one character on standard input and takes it. Whatever follows it stays there for the
/// next reader, so that a shell loop fed by the same pipe goes on with its next line. Returns false
/// at the end of the input or if it can't be read.
bool takeOneCharacter();

}  // namespace tavrel
