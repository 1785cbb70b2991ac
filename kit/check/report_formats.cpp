#include "kit/check/report_formats.h"

#include <fmt/format.h>

#include <algorithm>
#include <numeric>

#include "kit/frame/colour.h"
#include "kit/frame/display_text.h"

namespace tavrel::kit {

namespace {

/// Returns a line of the script as it is shown: a tab takes one column, like everything else.
std::string shownLine(std::string_view line) {
  std::string text(line);
  std::replace(text.begin(), text.end(), '\t', ' ');
  return displayText(text);
}

/// The part of a long line that is shown around a problem, and the problem's column in it.
struct Excerpt {
  std::string text;
  std::size_t column;
};

/// Returns the part of a line around its byte `offset`. Doesn't look at what is far from it: a long
/// line can have many problems.
Excerpt excerptOf(std::string_view line, std::size_t offset) {
  constexpr std::size_t kBefore = 100;
  constexpr std::size_t kWidth = 200;
  constexpr std::size_t kLongestCharacter = 4;
  offset = std::min(offset, line.size());
  std::size_t start = offset - std::min(offset, kLongestCharacter * kBefore);
  while (start > 0 && start < offset && (static_cast<unsigned char>(line[start]) & 0xC0U) == 0x80) {
    ++start;  // not within a character
  }
  std::size_t column = 1 + displayWidth(line.substr(start, offset - start));
  for (; column > kBefore; --column) {
    start += characterLength(line.substr(start));
  }
  line.remove_prefix(start);
  std::size_t bytes = 0;
  for (std::size_t shown = 0; shown < kWidth && bytes < line.size(); ++shown) {
    bytes += characterLength(line.substr(bytes));
  }
  return {shownLine(line.substr(0, bytes)), column};
}

std::string coloured(const std::string& text, bool isColoured) {
  return isColoured ? fmt::format("{}{}{}", kRed, text, kPlain) : text;
}

/// Returns a problem without its hint.
std::string problemAsText(const CheckedScript& script, const Diagnostic& diagnostic,
                          bool isColoured) {
  const Position place = script.text.positionOf(diagnostic.offset);
  const std::string_view line = script.text.line(place.line);
  const auto lineStart = static_cast<std::size_t>(line.data() - script.text.text().data());
  const Excerpt excerpt = excerptOf(line, diagnostic.offset - lineStart);
  return fmt::format("{}:{}:{}: {}: {} [{}]\n{}\n{}^\n", displayText(script.path), place.line,
                     place.column, coloured(severityName(diagnostic.code->severity), isColoured),
                     displayText(diagnostic.message), diagnostic.code->name, excerpt.text,
                     std::string(excerpt.column - 1, ' '));
}

}  // namespace

const char* severityName(Severity severity) {
  return severity == Severity::error ? "error" : "warning";
}

std::size_t countOf(const std::vector<CheckedScript>& scripts, Severity severity) {
  return std::accumulate(scripts.begin(), scripts.end(), std::size_t{0},
                         [severity](std::size_t sum, const CheckedScript& script) {
                           return sum + script.count(severity);
                         });
}

std::string problemCount(const std::vector<CheckedScript>& scripts) {
  return fmt::format("{}, {}\n", countText(countOf(scripts, Severity::error), "error"),
                     countText(countOf(scripts, Severity::warning), "warning"));
}

std::string fixCount(const FixedScript& script) {
  return script.fixCount == 0 ? ""
                              : fmt::format("{}: {} fixed\n", displayText(script.left.path),
                                            countText(script.fixCount, "problem"));
}

std::string problemsAsText(const std::vector<CheckedScript>& scripts, bool isColoured) {
  std::string text;
  for (const CheckedScript& script : scripts) {
    std::string_view last;  // one command may fix several problems of a file
    for (const Diagnostic& diagnostic : script.diagnostics) {
      text += problemAsText(script, diagnostic, isColoured);
      if (!diagnostic.hint.empty() && diagnostic.hint != last) {
        text += fmt::format("  {}\n", displayText(diagnostic.hint));
      }
      last = diagnostic.hint;
    }
  }
  return text;
}

Json problemsAsJson(const std::vector<CheckedScript>& scripts) {
  Json diagnostics = Json::array();
  for (const CheckedScript& script : scripts) {
    for (const Diagnostic& diagnostic : script.diagnostics) {
      const Position place = script.text.positionOf(diagnostic.offset);
      diagnostics.push_back({{"code", diagnostic.code->name},
                             {"severity", severityName(diagnostic.code->severity)},
                             {"file", displayText(script.path)},
                             {"line", place.line},
                             {"column", place.column},
                             {"message", displayText(diagnostic.message)},
                             {"hint", displayText(diagnostic.hint)}});
    }
  }
  return {{"format", 1},
          {"errors", countOf(scripts, Severity::error)},
          {"warnings", countOf(scripts, Severity::warning)},
          {"diagnostics", std::move(diagnostics)}};
}

}  // namespace tavrel::kit
