#include "kit/frame/argument_parser.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>

#include "kit/frame/contains.h"
#include "kit/frame/failure.h"
#include "kit/frame/help.h"
#include "kit/frame/nearest.h"

namespace tavrel::kit {

namespace {

/// Throws Failure unless the option can have the value.
void checkValue(const CommandOption& option, const std::string& value) {
  if (!option.words.empty() && !contains(option.words, value)) {
    throw Failure(fmt::format("{} must be one of {}, not {}", longName(option),
                              fmt::join(option.words, ", "), value));
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

}  // namespace

Arguments parseArguments(const Command& command, std::vector<std::string> words) {
  Arguments arguments;
  CLI::App app;
  app.set_help_flag();
  app.allow_windows_style_options(false);  // "/sounds/sfx.tvb" is a file
  app.allow_extras();  // operands: told of them, the parser would take one in brackets for a list
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

}  // namespace tavrel::kit
