#include "tests/support/tool_run.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

#include "tests/support/temporary_directory.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace tavrel::test {
namespace {

#ifdef _WIN32

const std::string kEnterDirectory = "cd /d ";
const std::string kTimeLimit;

/// `text` as one argument of a Windows command line. A quote is doubled, and backslashes count only
/// in front of the closing one.
std::string quoted(const std::string& text) {
  std::string result = "\"";
  for (const char character : text) {
    result.append(character == '"' ? 2 : 1, character);
  }
  result.append(text.size() - text.find_last_not_of('\\') - 1, '\\');
  return result + '"';
}

int exitCodeOf(int status) { return status; }

#else

const std::string kEnterDirectory = "cd ";
const std::string kTimeLimit = "timeout 60 ";

/// `text` as one word of a POSIX shell.
std::string quoted(const std::string& text) {
  std::string result = "'";
  for (const char character : text) {
    result += character == '\'' ? std::string("'\\''") : std::string(1, character);
  }
  return result + '\'';
}

int exitCodeOf(int status) { return WIFEXITED(status) ? WEXITSTATUS(status) : -1; }

#endif

constexpr int kTimedOut = 124;  // the answer of the timeout command

/// A path as the shell of the host writes it.
std::string hostQuoted(const std::string& path) {
  return quoted(std::filesystem::path(path).make_preferred().string());
}

ToolRun run(const std::string& directory, const std::vector<std::string>& arguments,
            const ToolRunOptions& options, bool merged) {
  const TemporaryDirectory streams;
  std::string command = kEnterDirectory + hostQuoted(directory) + " && " + options.shellPrefix +
                        ' ' + kTimeLimit + hostQuoted(TAVREL_EXECUTABLE);
  for (const std::string& argument : arguments) {
    command += ' ' + quoted(argument);
  }
  command += " <" + hostQuoted(streams.write("in", options.standardInput));
  command += " >" + hostQuoted(streams.write("out", ""));
  command += merged ? " 2>&1" : " 2>" + hostQuoted(streams.write("err", ""));
  command += ' ' + options.redirections;

  ToolRun result;
  result.exitCode = exitCodeOf(std::system(command.c_str()));
  result.standardOutput = streams.read("out");
  result.standardError = merged ? "" : streams.read("err");
  EXPECT_NE(result.exitCode, kTimedOut) << "the tool hangs: " << command;
  return result;
}

}  // namespace

ToolRun runTool(const std::string& directory, const std::vector<std::string>& arguments,
                const ToolRunOptions& options) {
  return run(directory, arguments, options, false);
}

ToolRun runToolMerged(const std::string& directory, const std::vector<std::string>& arguments,
                      const ToolRunOptions& options) {
  return run(directory, arguments, options, true);
}

}  // namespace tavrel::test
