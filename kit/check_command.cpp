// tavkit check: the linter of build scripts.
#include <fmt/format.h>

#include <charconv>
#include <cstdio>

#include "kit/check/check_script.h"
#include "kit/check/report_formats.h"
#include "kit/commands.h"
#include "kit/frame/colour.h"
#include "kit/frame/failure.h"
#include "kit/frame/nearest.h"
#include "kit/frame/output.h"
#include "kit/frame/text_table.h"
#include "kit/quality/quality_limit.h"

namespace tavrel::kit {

namespace {

std::vector<std::string> codeNames() {
  std::vector<std::string> names;
  for (const Code& code : codes()) {
    names.emplace_back(code.name);
  }
  return names;
}

/// Checks a code that --allow names.
const std::string& allowable(const std::string& name) {
  const Code* code = findCode(name);
  if (code == nullptr) {
    throw Failure(fmt::format("there is no code {}{}", name, didYouMean(name, codeNames())));
  }
  if (code->severity == Severity::error) {
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
    throw Failure(fmt::format("--max-bytes takes a number of bytes, 64K or 8M, not {}", text));
  }
  return number << shift;
}

CheckOptions checkOptions(const Arguments& arguments) {
  CheckOptions options;
  for (const std::string& name : arguments.values("--allow")) {
    options.allowed.push_back(allowable(name));
  }
  if (const auto limit = arguments.value("--max-bytes")) {
    options.mostBytes = byteCount(*limit);
  }
  options.lowestQuality = qualityLimit(arguments);
  return options;
}

std::string listOfCodes(const Arguments& arguments) {
  if (arguments.has("--json") || arguments.value("--format").value_or("text") != "text") {
    throw Failure("--list-codes prints text only");
  }
  TextTable table({{"code"}, {"severity"}, {"meaning"}});
  for (const Code& code : codes()) {
    table.add({std::string(code.name), severityName(code.severity), std::string(code.summary)});
  }
  return table.text();
}

std::string formatted(const std::vector<CheckedScript>& scripts, const Arguments& arguments) {
  const std::string format =
      arguments.value("--format").value_or(arguments.has("--json") ? "json" : "text");
  if (format == "json") {
    return problemsAsJson(scripts);
  }
  return format == "sarif" ? problemsAsSarif(scripts)
                           : problemsAsText(scripts, showsColours(stdout));
}

int runCheck(const Arguments& arguments, Output& output) {
  if (arguments.has("--list-codes")) {
    output.results = listOfCodes(arguments);
    return exitYes;
  }
  if (arguments.operands.empty()) {
    throw Failure("no script to check", "Usage: tavkit check [OPTION ...] SCRIPT ...\n");
  }
  const CheckOptions options = checkOptions(arguments);
  changeDirectory(arguments);
  std::vector<CheckedScript> scripts;
  for (const std::string& script : arguments.operands) {
    scripts.push_back(checkScript(planFor(script, arguments), options));
  }
  output.results = formatted(scripts, arguments);
  output.messages = problemCount(scripts);
  const bool hasErrors = countOf(scripts, Severity::error) > 0;
  const bool hasWarnings = countOf(scripts, Severity::warning) > 0;
  return hasErrors || (hasWarnings && arguments.has("--werror")) ? exitNo : exitYes;
}

}  // namespace

Command checkCommand() {
  return {
      .name = "check",
      .operands = {.synopsis = "SCRIPT ...",
                   .most = Operands::kAnyNumber,
                   .completion = Completion::script},
      .summary = "Find the mistakes in build scripts",
      .description =
          "Reports every problem of the scripts in one go, with its line and column. The exit code "
          "is 1 if there is an error. No error means that tavrel packs every asset of the script "
          "whole and that all defines are unique C identifiers. Whatever tavrel refuses or "
          "silently leaves out is an error.\n\n"
          "Warnings can be allowed: by --allow, by a comment \"; tavkit: allow CODE, CODE\" on the "
          "line on which a statement begins, for that statement, or by such a comment among the "
          "first lines of the script, for the whole script.",
      .example = "tavkit check sounds.txt",
      .options = joined(
          scriptOptions(),
          {{.names = "--format",
            .value = "FORM",
            .help = "Print text, which editors parse, json or sarif",
            .words = {"text", "json", "sarif"}},
           {.names = "--json", .help = "Print one JSON document: --format json"},
           {.names = "--werror", .help = "Exit with 1 for warnings too"},
           {.names = "--allow", .value = "CODE", .help = "Don't report warnings with this code"},
           belowOption("Warn of compressed sounds with a ratio below DB decibels"),
           {.names = "--max-bytes",
            .value = "N",
            .help = "Report a bank longer than N bytes, 64K or 8M, as an error"},
           {.names = "--list-codes", .help = "List the codes of all problems"}}),
      .run = runCheck,
  };
}

}  // namespace tavrel::kit
