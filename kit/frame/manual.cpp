#include "kit/frame/manual.h"

#include <fmt/format.h>

#include <algorithm>

#include "kit/commands.h"
#include "kit/frame/help.h"
#include "kit/frame/wrapped_lines.h"

namespace tavrel::kit {

namespace {

constexpr const char* kDate = "November 27, 2026";  // of the last change of the table of commands

/// Returns text as mdoc takes it: with its escape character escaped, and no line that begins like a
/// request.
std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    const bool startsLine = result.empty() || result.back() == '\n';
    if (startsLine && (c == '.' || c == '\'')) {
      result += "\\&";
    }
    result += c == '\\' ? "\\e" : std::string(1, c);
    if (c == '-') {
      result.insert(result.size() - 1, 1, '\\');  // a hyphen that can be searched for and copied
    }
  }
  return result;
}

/// Breaks a sentence into lines that are short enough for an editor. mdoc fills them again.
std::string wrapped(std::string_view sentence) {
  constexpr std::size_t kWidth = 72;  // escaping makes a line longer
  std::string lines;
  for (const std::string_view line : wrappedLines(sentence, kWidth)) {
    lines += escaped(line) + '\n';
  }
  return lines;
}

/// Returns paragraphs that are separated by empty lines, with a new line for each sentence.
std::string paragraphs(std::string_view text) {
  std::string result;
  while (!text.empty()) {
    const std::size_t end = std::min({text.find(". "), text.find("\n\n"), text.size()});
    const bool endsParagraph = text.substr(end).starts_with("\n\n");
    result += wrapped(text.substr(0, endsParagraph || end == text.size() ? end : end + 1));
    result += endsParagraph ? ".Pp\n" : "";
    text.remove_prefix(std::min(end + 2, text.size()));
  }
  return result;
}

std::string optionList(const std::vector<CommandOption>& options) {
  if (options.empty()) {
    return "";
  }
  std::string list = ".Bl -tag -width Ds\n";
  for (const CommandOption& option : options) {
    list += fmt::format(".It {}\n{}", escaped(displayName(option)), wrapped(option.help + '.'));
  }
  return list + ".El\n";
}

std::string commandSection(const Command& command) {
  return fmt::format(".Ss {}\n.D1 {}\n.Pp\n{}", escaped(command.name), escaped(usage(command)),
                     paragraphs(command.description)) +
         optionList(command.options) +
         fmt::format(".Pp\nExample:\n.Dl {}\n", escaped(command.example));
}

constexpr const char* kConventions =
    "Results go to standard output, messages to standard error.\n"
    "A bank's generated header is found next to it, under the name that\n"
    ".Xr tavrel 1\n"
    "gives it: sfx.h for sfx.tvb.\n"
    "Without one, assets are called by their ids.\n"
    "A define may be given with or without the prefix, in any case.\n"
    "Control characters in names are shown as U+FFFD.\n";

constexpr const char* kClosing =
    ".Sh ENVIRONMENT\n"
    ".Bl -tag -width Ds\n"
    ".It Ev NO_COLOR\n"
    "If set and not empty, nothing is coloured.\n"
    ".It Ev SOURCE_DATE_EPOCH\n"
    "The time that\n"
    ".Ic build\n"
    "writes into a header, in seconds since 1970.\n"
    ".El\n"
    ".Sh EXIT STATUS\n"
    ".Bl -tag -width Ds\n"
    ".It 0\n"
    "Done, or the answer is yes.\n"
    ".It 1\n"
    "The answer is no: a check failed, or two banks differ.\n"
    ".It 2\n"
    "The question could not be answered: bad usage, a file that can't be read,\n"
    "no memory, a full disk.\n"
    "Standard output is then empty.\n"
    ".El\n"
    ".Sh SEE ALSO\n"
    ".Xr tavrel 1\n"
    ".Pp\n"
    "The commands are described with examples in the file\n"
    ".Pa tavkit.md ,\n"
    "which is installed with the program.\n";

}  // namespace

std::string manualPage() {
  std::string page = fmt::format(
      ".\\\" Made from the table of commands by scripts/documents. Don't edit.\n"
      ".Dd {}\n.Dt TAVKIT 1\n.Os\n.Sh NAME\n.Nm tavkit\n"
      ".Nd look into sound banks and their sources\n"
      ".Sh SYNOPSIS\n.Nm\n.Ar command\n.Op Ar option ...\n.Op Ar operand ...\n.Sh DESCRIPTION\n{}",
      kDate, kConventions);
  page += "These options work everywhere:\n" + optionList(commonOptions()) + ".Sh COMMANDS\n";
  for (const Command& command : commands()) {
    page += commandSection(command);
  }
  return page + kClosing;
}

}  // namespace tavrel::kit
