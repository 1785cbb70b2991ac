// Runs the real tool as its users do: a process of its own, in a folder of the test's choice, its
// streams led to files so that every byte can be compared. A tool that hangs fails the test.
#pragma once

#include <string>

namespace tavrel::test {

/// What one run of the tool left behind, byte for byte.
struct ToolRun {
  int exitCode = -1;  ///< 128 and the signal's number for a run that a signal ended
  std::string standardOutput, standardError;
};

/// Runs the tool with `directory` as its current directory. `arguments` is shell text, in which a
/// redirection such as "2>&1" may stand. Standard input is empty.
ToolRun runTool(const std::string& directory, const std::string& arguments);

}  // namespace tavrel::test
