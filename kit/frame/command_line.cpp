#include "kit/frame/command_line.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>

#include "kit/commands.h"
#include "kit/frame/arguments.h"
#include "kit/frame/colour.h"
#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"
#include "kit/frame/help.h"
#include "kit/frame/nearest.h"
#include "kit/frame/version.h"
#include "platform/termination.h"

namespace tavrel::kit {

namespace {

/// Throws Failure unless the option can have the value.
void checkValue(const CommandOption& option, const std::string& value) {
  const auto& words = option.words;
  if (!words.empty() && std::find(words.begin(), words.end(), value) == words.end()) {
    throw Failure(fmt::format("{} must be one of {}, not {}", longName(option),
                              fmt::join(words, ", "), value));
  }
}

/// Checks the values given to flags with "=". The parser delivers "true" for --json and --json=true
/// alike.
void checkFlagValues(const std::vector<CommandOption>& options,
                     const std::vector<std::string>& words) {
  for (const std::string& word : words) {
    if (word == "--") {
      return;
    }
    for (const CommandOption& option : options) {
      const std::string start = longName(option) + '=';
      if (!option.value.empty() || !word.starts_with(start)) {
        continue;
      }
      if (option.words.empty()) {
        throw Failure(fmt::format("{} takes no value", longName(option)));
      }
      checkValue(option, word.substr(start.size()));
    }
  }
}

/// Adds an option to the parser. What is given for it ends up in `arguments`.
void addOption(CLI::App& app, const CommandOption& option, Arguments& arguments) {
  const auto keep = [&arguments, &option](const CLI::results_t& values) {
    if (!option.value.empty()) {
      std::for_each(values.begin(), values.end(),
                    [&option](const std::string& value) { checkValue(option, value); });
    }
    arguments.options[longName(option)] = values;
    return true;
  };
  CLI::Option* added = app.add_option(option.names, keep);
  added->type_size(1)->expected(option.value.empty() ? 0 : 1)->allow_extra_args(false);
  added->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)->type_name(option.value);
}

[[noreturn]] void failUnknownOption(const std::string& argument, const Command& command) {
  std::vector<std::string> names;
  for (const CommandOption& option : joined(command.options, commonOptions())) {
    names.push_back(longName(option));
  }
  const std::string typed = argument.substr(0, argument.find('='));
  throw Failure(
      fmt::format("{} has no option {}{}", command.name, typed, didYouMean(typed, names)));
}

void checkOperands(const Command& command, const Arguments& arguments) {
  const std::size_t count = arguments.operands.size();
  if (count < command.operands.fewest || count > command.operands.most) {
    throw Failure(fmt::format("too {} operands", count > command.operands.most ? "many" : "few"),
                  fmt::format("Usage: {}\n", usage(command)));
  }
}

/// Takes what the parser has left: operands, "--", and options that the command doesn't have. After
/// "--" there are operands alone.
void takeOperands(const std::vector<std::string>& words, const Command& command,
                  Arguments& arguments) {
  bool isAfterMark = false;
  for (const std::string& word : words) {
    if (isAfterMark || !word.starts_with('-') || word == "-") {
      arguments.operands.push_back(word);
    } else if (word == "--") {
      isAfterMark = true;
    } else {
      failUnknownOption(word, command);
    }
  }
}

/// Parses what follows the command's name. The parser isn't told of operands, because it would take
/// one in brackets for a list.
Arguments parse(const Command& command, std::vector<std::string> words) {
  Arguments arguments;
  CLI::App app;
  app.set_help_flag();
  app.allow_windows_style_options(false);  // "/sounds/sfx.tvb" is a file
  app.allow_extras();
  const std::vector<CommandOption> options = joined(command.options, commonOptions());
  for (const CommandOption& option : options) {
    addOption(app, option, arguments);
  }
  checkFlagValues(options, words);
  std::reverse(words.begin(), words.end());  // as this parser takes them
  try {
    app.parse(words);
  } catch (const CLI::ArgumentMismatch& error) {
    const std::string text = error.what();  // --below: 1 required DB missing
    throw Failure(fmt::format("{} needs a value", text.substr(0, text.find(':'))));
  } catch (const CLI::ParseError& error) {
    throw Failure(error.what());
  }
  takeOperands(app.remaining(), command, arguments);
  return arguments;
}

int runCommand(const Command& command, std::vector<std::string> words, Output& output) {
  const Arguments arguments = parse(command, std::move(words));
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
