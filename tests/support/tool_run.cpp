#include "tests/support/tool_run.h"

#include <cstdlib>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

ToolRun runTool(const std::string& directory, const std::vector<std::string>& arguments,
                const ToolRunOptions& options) {
  const bool onPosix = std::filesystem::path::preferred_separator == '/';
  const TemporaryDirectory streams;
  std::string command = (onPosix ? "cd \"" : "cd /d \"") + directory + "\" && " +
                        options.shellPrefix + (onPosix ? " timeout 60" : "");
  command += " \"" TAVREL_EXECUTABLE "\"";
  for (const std::string& argument : arguments) {
    command += " \"" + argument + '"';
  }
  command += " <\"" + streams.write("in", "") + "\" >\"" + streams.write("out", "") + "\" 2>\"" +
             streams.write("err", "") + "\" " + options.redirections;
  const int status = std::system(command.c_str());
  // A POSIX host has the exit code, which is 124 for a tool that hangs, in the second byte.
  return {onPosix ? status >> 8 : status, streams.read("out"), streams.read("err")};
}

}  // namespace tavrel::test
