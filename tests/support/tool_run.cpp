#include "tests/support/tool_run.h"

#include <cstdlib>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

ToolRun runTool(const std::string& directory, const std::string& arguments) {
  const bool onPosix = std::filesystem::path::preferred_separator == '/';
  const TemporaryDirectory streams;
  const std::string command = (onPosix ? "cd \"" : "cd /d \"") + directory + "\" && " +
                              (onPosix ? "timeout 60 " : "") + "\"" TAVREL_EXECUTABLE "\" <\"" +
                              streams.write("in", "") + "\" >\"" + streams.write("out", "") +
                              "\" 2>\"" + streams.write("err", "") + "\" " + arguments;
  const int status = std::system(command.c_str());
  // A POSIX host has the exit code, which is 124 for a tool that hangs, in the second byte.
  return {onPosix ? status >> 8 : status, streams.read("out"), streams.read("err")};
}

}  // namespace tavrel::test
