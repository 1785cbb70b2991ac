#include "kit/check/check_options.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>

#include "kit/check/report_formats.h"
#include "kit/frame/colour.h"
#include "kit/frame/failure.h"
#include "kit/quality/quality_limit.h"

namespace tavrel::kit {

namespace {

/// Checks a code that --allow names.
std::string allowable(std::string name) {
  if (codeNamed(name).severity == Severity::error) {
    throw Failure(fmt::format("{} is an error, which can't be allowed", name));
  }
  return name;
}

/// Returns the bytes that "4096", "64K" or "8M" is.
std::uint64_t byteCount(const std::string& text) {
  std::uint64_t number = 0;
  const char* end = text.data() + text.size();
  const auto result = std::from_chars(text.data(), end, number);
  const std::string_view unit(result.ptr, static_cast<std::size_t>(end - result.ptr));
  const unsigned shift = unit == "K" ? 10 : unit == "M" ? 20 : 0;
  if (result.ec != std::errc() || (shift == 0 && !unit.empty()) || number > UINT64_MAX >> shift) {
    throw Failure(
        fmt::format("--max-bytes takes a number of bytes, such as 65536, 64K or 8M, not {}", text));
  }
  return number << shift;
}

}  // namespace

const std::vector<CommandOption>& checkOptionRows() {
  static const std::vector<CommandOption> kRows{
      {.names = "--format",
       .value = "FORM",
       .help = "Print text, which editors parse, json or sarif",
       .words = {"text", "json", "sarif"}},
      {.names = "--werror", .help = "Exit with 1 for warnings too"},
      {.names = "--allow",
       .value = "CODE",
       .help = "Don't report warnings with this code, or with these: CODE,CODE"},
      belowOption("Warn of compressed sounds with a ratio below DB decibels"),
      {.names = "--max-bytes",
       .value = "N",
       .help = "Report a bank longer than N bytes as an error; N may be 64K or 8M"}};
  return kRows;
}

CheckOptions checkOptions(const Arguments& arguments) {
  CheckOptions options;
  for (const std::string& list : arguments.values("--allow")) {
    for (std::size_t start = 0; start <= list.size();) {
      const std::size_t end = std::min(list.find(',', start), list.size());
      options.allowed.push_back(allowable(list.substr(start, end - start)));
      start = end + 1;
    }
  }
  if (const auto limit = arguments.value("--max-bytes")) {
    options.mostBytes = byteCount(*limit);
  }
  options.lowestQuality = qualityLimit(arguments);
  return options;
}

std::string formOf(const Arguments& arguments) {
  const bool isJson = arguments.has("--json");
  std::string form = arguments.value("--format").value_or(isJson ? "json" : "text");
  if (isJson && form != "json") {
    throw Failure(fmt::format("--json contradicts --format {}", form));
  }
  return form;
}

bool stops(const std::vector<CheckedScript>& scripts, const Arguments& arguments) {
  return countOf(scripts, Severity::error) > 0 ||
         (arguments.has("--werror") && countOf(scripts, Severity::warning) > 0);
}

std::string formatted(const std::vector<CheckedScript>& scripts, const std::string& form,
                      std::FILE* stream) {
  if (form == "json") {
    return documentText(problemsAsJson(scripts));
  }
  return form == "sarif" ? problemsAsSarif(scripts) : problemsAsText(scripts, showsColours(stream));
}

}  // namespace tavrel::kit
