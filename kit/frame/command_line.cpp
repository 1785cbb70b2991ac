#include "kit/frame/command_line.h"

#include <fmt/format.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>

#include "kit/commands.h"
#include "kit/frame/argument_parser.h"
#include "kit/frame/colour.h"
#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"
#include "kit/frame/help.h"
#include "kit/frame/nearest.h"
#include "kit/frame/version.h"
#include "platform/termination.h"

namespace tavrel::kit {

namespace {

void checkOperands(const Command& command, const Arguments& arguments) {
  const std::size_t count = arguments.operands.size();
  if (count < command.operands.fewest || count > command.operands.most) {
    throw Failure(fmt::format("too {} operands", count > command.operands.most ? "many" : "few"),
                  fmt::format("Usage: {}\n", usage(command)));
  }
}

int runCommand(const Command& command, std::vector<std::string> words, Output& output) {
  const Arguments arguments = parseArguments(command, std::move(words));
  if (arguments.has("--help")) {
    output.results = commandHelp(command);
    return exitYes;
  }
  if (arguments.has("--version")) {
    output.results = fmt::format("tavkit {}\n", versionWithCommit());
    return exitYes;
  }
  checkOperands(command, arguments);
  return command.run(arguments, output);
}

const Command& findCommand(const std::string& name) {
  std::vector<std::string> names;
  for (const Command& command : commands()) {
    if (command.name == name) {
      return command;
    }
    names.push_back(command.name);
  }
  for (const CommandOption& option : commonOptions()) {
    names.push_back(longName(option));
  }
  throw Failure(fmt::format("there is no command {}{}", name, didYouMean(name, names)),
                "Run 'tavkit --help' for the commands.\n");
}

int dispatch(const std::vector<std::string>& arguments, Output& output) {
  const std::string first = arguments.empty() ? "" : arguments.front();
  if (first == "-h" || first == "--help") {
    output.results = programHelp();
    return exitYes;
  }
  if (first == "--version") {
    output.results = fmt::format("tavkit {}\n", versionWithCommit());
    return exitYes;
  }
  if (first.empty()) {
    throw Failure("no command", '\n' + programHelp());
  }
  return runCommand(findCommand(first), {arguments.begin() + 1, arguments.end()}, output);
}

int fail(Output& output, std::string_view message, std::string_view advice = "") {
  output.results.clear();
  output.messages += fmt::format("tavkit: {}\n{}", displayText(message), advice);
  return exitFailed;
}

/// Ends the program where an exception can't: the JSON library allocates memory in destructors.
[[noreturn]] void exitOutOfMemory() {
  std::fputs("tavkit: out of memory\n", stderr);
  DoomedFile::deleteAll();
  std::_Exit(exitFailed);
}

bool write(std::FILE* stream, const std::string& text) {
  errno = 0;
  return std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
         std::fflush(stream) == 0;
}

}  // namespace

int runCommandLine(const std::vector<std::string>& arguments, Output& output) {
  try {
    return dispatch(arguments, output);
  } catch (const std::bad_alloc&) {
    return fail(output, "out of memory");
  } catch (const Failure& failure) {
    return fail(output, failure.what(), failure.advice());
  } catch (const std::exception& error) {
    return fail(output, error.what());
  }
}

int runTavkit(int argumentCount, const char* const* arguments) {
  std::set_terminate(exitOutOfMemory);
  Output output;
  output.isColoured = showsColours(stdout);
  int code = exitFailed;
  try {
    code = runCommandLine({arguments + 1, arguments + argumentCount}, output);
  } catch (const std::bad_alloc&) {
    exitOutOfMemory();
  }
  if (!write(stdout, output.results)) {
    write(stderr, fmt::format("tavkit: can't write standard output: {}\n", std::strerror(errno)));
    code = exitFailed;
  }
  return write(stderr, output.messages) ? code : exitFailed;
}

}  // namespace tavrel::kit
