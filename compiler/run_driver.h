// One run of the tool, from its argument list to its exit code.
#pragma once

namespace tavrel {

// The last line of a run that fails, by its phase.
constexpr const char* kParseFailure = "Error: Failed to parse script...";
constexpr const char* kBankFailure = "Error: Failed to write bank...";
constexpr const char* kHeaderFailure = "Error: Failed to write header...";

/// Runs the tool: reads the script, writes the bank and the header, and reports on the standard
/// streams. A failed run waits for one character on standard input.
///
/// `arguments` holds `argumentCount` texts, the program's name first, and a null after the last
/// one. Returns the exit code: 0 after "Done!", else 1. Throws nothing.
int runTavrel(int argumentCount, const char* const* arguments);

}  // namespace tavrel
