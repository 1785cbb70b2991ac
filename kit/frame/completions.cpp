#include <fmt/format.h>

#include "kit/commands.h"
#include "kit/frame/help.h"
#include "kit/frame/manual.h"

namespace tavrel::kit {

namespace {

std::vector<CommandOption> allOptions(const Command& command) {
  return joined(command.options, commonOptions());
}

/// Returns the names of an option, one after the other: "-o --output".
std::string spacedNames(const CommandOption& option) {
  std::string names = option.names;
  const std::size_t comma = names.find(',');
  if (comma != std::string::npos) {
    names[comma] = ' ';
  }
  return names;
}

std::string optionWords(const std::vector<CommandOption>& options) {
  std::string words;
  for (const CommandOption& option : options) {
    words += (words.empty() ? "" : " ") + spacedNames(option);
  }
  return words;
}

/// Returns the command that completes a file of this kind in bash.
const char* bashFiles(Completion completion) {
  switch (completion) {
    case Completion::bank:
      return "_tavkit_files '!*.tvb'";
    case Completion::script:
      return "_tavkit_files '!*.txt'";
    case Completion::file:
      return "_tavkit_files ''";
    case Completion::folder:
      return "_tavkit_files '*'";
    case Completion::none:
      break;
  }
  return ":";
}

std::string bashValue(const CommandOption& option) {
  if (!option.words.empty()) {
    return fmt::format("_tavkit_words '{}'", fmt::join(option.words, " "));
  }
  return bashFiles(option.completion);
}

/// Returns the case of each option of a command that takes a value.
std::string bashValues(const Command& command) {
  std::string cases;
  for (const CommandOption& option : command.options) {
    if (option.value.empty()) {
      continue;
    }
    std::string pattern = fmt::format("{}:{}", command.name, option.names);
    const std::size_t comma = pattern.find(',');
    if (comma != std::string::npos) {
      pattern.replace(comma, 1, fmt::format(" | {}:", command.name));
    }
    cases += fmt::format("    {}) {}; return ;;\n", pattern, bashValue(option));
  }
  return cases;
}

/// Returns the action that completes a file of this kind in zsh.
const char* zshFiles(Completion completion) {
  switch (completion) {
    case Completion::bank:
      return "_files -g \"*.tvb\"";
    case Completion::script:
      return "_files -g \"*.txt\"";
    case Completion::file:
      return "_files";
    case Completion::folder:
      return "_files -/";
    case Completion::none:
      break;
  }
  return " ";
}

/// Returns a description as _arguments takes it.
std::string zshDescription(std::string_view text) {
  std::string result;
  for (const char c : text) {
    result += c == '\''                          ? "'\\''"
              : c == ':' || c == '[' || c == ']' ? fmt::format("\\{}", c)
                                                 : std::string(1, c);
  }
  return result;
}

std::string zshOption(const CommandOption& option) {
  std::string value;
  if (!option.value.empty()) {
    value = option.words.empty()
                ? fmt::format(":{}:{}", option.value, zshFiles(option.completion))
                : fmt::format(":{}:({})", option.value, fmt::join(option.words, " "));
  }
  const std::string help = zshDescription(option.help);
  const std::size_t comma = option.names.find(',');
  if (comma == std::string::npos) {
    return fmt::format(" \\\n        '{}[{}]{}'", option.names, help, value);
  }
  return fmt::format(" \\\n        '({0} {1})'{{{0},{1}}}'[{2}]{3}'", option.names.substr(0, comma),
                     option.names.substr(comma + 1), help, value);
}

std::string zshCase(const Command& command) {
  std::string text = fmt::format("    {})\n      _arguments", command.name);
  for (const CommandOption& option : allOptions(command)) {
    text += zshOption(option);
  }
  if (command.operands.most > 0) {
    text += fmt::format(" \\\n        '*:operand:{}'", zshFiles(command.operands.completion));
  }
  return text + "\n      ;;\n";
}

}  // namespace

std::string bashCompletion() {
  std::string names;
  std::string values;
  std::string options;
  std::string operands;
  for (const Command& command : commands()) {
    names += command.name + ' ';
    values += bashValues(command);
    options += fmt::format("      {}) _tavkit_words '{}' ;;\n", command.name,
                           optionWords(allOptions(command)));
    operands +=
        fmt::format("    {}) {} ;;\n", command.name, bashFiles(command.operands.completion));
  }
  return "# Completion of tavkit for bash. Made from its table of commands by scripts/documents.\n"
         "# shellcheck shell=bash\n\n"
         "# Completes a folder, or a file whose name doesn't match the pattern.\n"
         "_tavkit_files() {\n"
         "  compopt -o filenames\n"
         "  mapfile -t COMPREPLY < <(compgen -d -- \"$current\"; compgen -f -X \"$1\" -- "
         "\"$current\")\n"
         "}\n\n"
         "_tavkit_words() { mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$current\"); }\n\n"
         "_tavkit() {\n"
         "  local current=$2 previous=$3 command=${COMP_WORDS[1]}\n"
         "  COMPREPLY=()\n"
         "  if ((COMP_CWORD == 1)); then\n"
         "    _tavkit_words '" +
         names + optionWords(commonOptions()) +
         "'\n    return\n  fi\n  case $command:$previous in\n" + values +
         "  esac\n  if [[ $current == -* ]]; then\n    case $command in\n" + options +
         "    esac\n    return\n  fi\n  case $command in\n" + operands +
         "  esac\n}\n\ncomplete -F _tavkit tavkit\n";
}

std::string zshCompletion() {
  std::string names;
  std::string cases;
  for (const Command& command : commands()) {
    names += fmt::format("    '{}:{}'\n", command.name, zshDescription(command.summary));
    cases += zshCase(command);
  }
  return "#compdef tavkit\n"
         "# Completion of tavkit for zsh. Made from its table of commands by scripts/documents.\n\n"
         "_tavkit() {\n  local -a commands=(\n" +
         names +
         "  )\n  if ((CURRENT == 2)); then\n    _describe command commands\n    return\n  fi\n"
         "  local command=$words[2]\n  shift words\n  ((CURRENT--))\n  case $command in\n" +
         cases + "  esac\n}\n\n_tavkit \"$@\"\n";
}

}  // namespace tavrel::kit
