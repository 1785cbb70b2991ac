// Runs the real tool as its users do: a process of its own, in a folder of the test's choice, its
// streams led to files so that every byte can be compared. A tool that hangs fails the test.
#pragma once

#include <string>
#include <vector>

namespace tavrel::test {

/// What one run of the tool left behind.
struct ToolRun {
  int exitCode = -1;           ///< 128 and the signal's number for a run that a signal ended
  std::string standardOutput;  ///< byte for byte; of a merged run, both streams as they came
  std::string standardError;   ///< byte for byte; empty for a merged run
};

/// What a run may have besides its arguments. The last two are for cases of a POSIX shell alone.
struct ToolRunOptions {
  std::string standardInput{};  ///< what the tool can read; standard input ends behind it
  std::string shellPrefix{};    ///< shell text in front of the tool, such as "ulimit -f 1;"
  std::string redirections{};   ///< what overrules the redirections here, such as ">/dev/full"
};

/// Runs the tool with `directory` as its current directory.
ToolRun runTool(const std::string& directory, const std::vector<std::string>& arguments,
                const ToolRunOptions& options = {});

/// The same with both streams in one file, so that `standardOutput` shows the order in which their
/// lines were written.
ToolRun runToolMerged(const std::string& directory, const std::vector<std::string>& arguments,
                      const ToolRunOptions& options = {});

}  // namespace tavrel::test
