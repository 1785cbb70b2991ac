// Leads the program's standard streams nowhere: what is printed is dropped without a system call,
// and standard input is at its end. Sanitizers and the fuzzer itself still reach the console.
#pragma once

namespace tavrel::fuzz {

/// From the first call on, for the rest of the program.
void silenceConsole();

}  // namespace tavrel::fuzz
