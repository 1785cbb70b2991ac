// docs/check_codes.md, made from the table of codes.
#include <fmt/format.h>

#include "kit/check/codes.h"
#include "kit/check/report_formats.h"
#include "kit/frame/manual.h"

namespace tavrel::kit {

namespace {

/// Returns a text as Markdown shows it: characters that mean something there are escaped.
std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (std::string_view("\\`*_<>[]|").find(c) != std::string_view::npos) {
      result += '\\';
    }
    result += c;
  }
  return result;
}

std::string sectionOf(const Code& code) {
  std::string text =
      fmt::format("\n## {}\n\n{}: {}. {}\n\nFix: {}\n", code.name, severityName(code.severity),
                  escaped(code.summary), escaped(code.cause), escaped(code.fix));
  if (!code.example.empty()) {
    const bool endsLine = code.example.ends_with('\n');
    text += fmt::format("\n```text\n{}{}```\n", code.example, endsLine ? "" : "\n");
  }
  return text;
}

}  // namespace

std::string pageOfCodes() {
  std::string page =
      "# The codes of tavkit check\n\n"
      "`tavkit explain CODE` prints the same. This page is made by `scripts/documents`; "
      "[check.md](check.md) shows how to use the linter.\n\n"
      "| Code | Severity | Meaning |\n|---|---|---|\n";
  for (const Code& code : codes()) {
    page += fmt::format("| [`{0}`](#{0}) | {1} | {2} |\n", code.name, severityName(code.severity),
                        escaped(code.summary));
  }
  for (const Code& code : codes()) {
    page += sectionOf(code);
  }
  return page;
}

}  // namespace tavrel::kit
