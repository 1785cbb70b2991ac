// Runs the real tool as its users do: a process of its own, in a folder of the test's choice, its
// streams led to files so that every byte can be compared. A tool that hangs fails the test.
#pragma once

#include <string>
#include <vector>

namespace tavrel::test {

/// What one run of the tool left behind, byte for byte.
struct ToolRun {
  int exitCode = -1;  ///< 128 and the signal's number for a run that a signal ended
  std::string standardOutput, standardError;
};

/// Shell text in front of the tool, such as "ulimit -f 1;", and what overrules the redirections of
/// its streams, such as "2>&1". Standard input is empty.
struct ToolRunOptions {
  std::string shellPrefix{}, redirections{};
};

/// Runs the tool with `directory` as its current directory. No argument holds a quote.
ToolRun runTool(const std::string& directory, const std::vector<std::string>& arguments,
                const ToolRunOptions& options = {});

}  // namespace tavrel::test
