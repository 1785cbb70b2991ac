// tavkit explain: what a code of `tavkit check` means and how to fix it.
#include <fmt/format.h>

#include <algorithm>

#include "kit/check/codes.h"
#include "kit/check/report_formats.h"
#include "kit/commands.h"
#include "kit/frame/arguments.h"
#include "kit/frame/failure.h"
#include "kit/frame/output.h"
#include "kit/frame/wrapped_lines.h"

namespace tavrel::kit {

namespace {

std::string filled(std::string_view text) {
  std::string lines;
  for (const std::string_view line : wrappedLines(text, 80)) {
    lines.append(line) += '\n';
  }
  return lines;
}

int runExplain(const Arguments& arguments, Output& output) {
  if (arguments.operands.empty()) {
    throw Failure("no code to explain", kCodesAdvice);
  }
  const Code& code = codeNamed(arguments.operands.front());
  output.results =
      fmt::format("{} ({})\n{}.\n\n{}\n{}", code.name, severityName(code.severity), code.summary,
                  filled(code.cause), filled(fmt::format("Fix: {}", code.fix)));
  if (!code.example.empty()) {
    output.results += "\nExample:\n";
    for (std::string_view rest = code.example; !rest.empty();) {
      const std::size_t end = std::min(rest.find('\n'), rest.size());
      output.results += fmt::format("    {}\n", rest.substr(0, end));
      rest.remove_prefix(std::min(end + 1, rest.size()));
    }
  }
  return exitYes;
}

}  // namespace

Command explainCommand() {
  return {
      .name = "explain",
      .operands = {.synopsis = "CODE", .most = 1},
      .summary = "Explain a code of check, with its fix",
      .description =
          "Prints what a code of tavkit check means, how it comes about and what to do, "
          "with an example. tavkit check --list-codes lists the codes.",
      .example = "tavkit explain adpcm-loop",
      .options = {},
      .run = runExplain,
  };
}

}  // namespace tavrel::kit
