#include "kit/frame/help.h"

#include <fmt/format.h>

#include <algorithm>

#include "kit/commands.h"

namespace tavrel::kit {

namespace {

/// Appends a row of two columns: an indented name, padded to `width`, and its description.
void appendRow(std::string& help, const std::string& name, const std::string& text,
               std::size_t width) {
  help += fmt::format("  {:<{}}  {}\n", name, width, text);
}

void appendOptions(std::string& help, const std::vector<CommandOption>& options) {
  std::size_t width = 0;
  for (const CommandOption& option : options) {
    width = std::max(width, displayName(option).size());
  }
  for (const CommandOption& option : options) {
    appendRow(help, displayName(option), option.help, width);
  }
}

}  // namespace

const std::vector<CommandOption>& commonOptions() {
  static const std::vector<CommandOption> kOptions{
      {.names = "-h,--help", .help = "Show this help"},
      {.names = "--version", .help = "Show the version, and the commit it is built from"},
  };
  return kOptions;
}

std::string longName(const CommandOption& option) {
  return option.names.substr(option.names.find(',') + 1);
}

std::string displayName(const CommandOption& option) {
  std::string name = option.names;
  const std::size_t comma = name.find(',');
  if (comma != std::string::npos) {
    name.replace(comma, 1, ", ");
  }
  if (!option.value.empty()) {
    return name + ' ' + option.value;
  }
  // A flag that takes words takes them after "=", so that it can stand alone.
  return option.words.empty() ? name : fmt::format("{}[={}]", name, fmt::join(option.words, "|"));
}

std::string usage(const Command& command) {
  return fmt::format("tavkit {} [OPTION ...]{}{}", command.name,
                     command.operands.synopsis.empty() ? "" : " ", command.operands.synopsis);
}

std::string programHelp() {
  std::string help =
      "tavkit looks into sound banks and their sources.\n\n"
      "Usage: tavkit COMMAND [OPTION ...] [OPERAND ...]\n\nCommands:\n";
  std::size_t width = 0;
  for (const Command& command : commands()) {
    width = std::max(width, command.name.size());
  }
  for (const Command& command : commands()) {
    appendRow(help, command.name, command.summary, width);
  }
  help += "\nOptions:\n";
  appendOptions(help, commonOptions());
  help +=
      "\nExample:\n  tavkit list sfx.tvb\n\nRun 'tavkit COMMAND --help' for a command's options.\n";
  return help;
}

std::string commandHelp(const Command& command) {
  std::string help = fmt::format("{}\n\nUsage: {}\n\nOptions:\n", command.summary, usage(command));
  appendOptions(help, joined(command.options, commonOptions()));
  help += fmt::format("\nExample:\n  {}\n", command.example);
  return help;
}

}  // namespace tavrel::kit
