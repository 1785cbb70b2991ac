// Silences the program's standard streams: output is dropped without a system call, and standard
// input is empty. Sanitizers and the fuzzer itself still print.
#pragma once

namespace tavrel::fuzz {

/// Silences the streams for the rest of the program.
void silenceConsole();

}  // namespace tavrel::fuzz
