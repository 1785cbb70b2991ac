// One run of the tool, from its argument list to its exit code.
#pragma once

namespace tavrel {

/// Runs the tool: reads the script, writes the bank and the header, and tells how it went on the
/// standard streams. A failed run waits for one character on standard input.
///
/// `arguments` holds `argumentCount` texts, the program's name first, with a null behind the last
/// one. Gives the exit code: 0 behind "Done!", 1 otherwise. Throws nothing.
int runTavrel(int argumentCount, const char* const* arguments);

}  // namespace tavrel
