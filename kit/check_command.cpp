// tavkit check: the linter of build scripts.
#include <cstdio>
#include <set>

#include "kit/check/check_options.h"
#include "kit/check/report_formats.h"
#include "kit/check/script_fix.h"
#include "kit/check/unified_diff.h"
#include "kit/commands.h"
#include "kit/frame/colour.h"
#include "kit/frame/failure.h"
#include "kit/frame/output.h"
#include "kit/frame/text_table.h"
#include "platform/file_identity.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

std::string listOfCodes(const Arguments& arguments) {
  if (formOf(arguments) != "text") {
    throw Failure("--list-codes prints text only");
  }
  TextTable table({{"code"}, {"severity"}, {"meaning"}});
  for (const Code& code : codes()) {
    table.add({std::string(code.name), severityName(code.severity), std::string(code.summary)});
  }
  return table.text();
}

/// Returns the scripts, each once, however often or under how many names it is given.
std::vector<std::string> differentScripts(const std::vector<std::string>& scripts) {
  std::vector<std::string> different;
  std::set<FileIdentity> known;
  for (const std::string& script : scripts) {
    const auto identity = fileIdentity(hostPath(script.c_str()).c_str());
    if (!identity || known.insert(*identity).second) {
      different.push_back(script);
    }
  }
  return different;
}

std::vector<CheckedScript> checkScripts(const std::vector<std::string>& names,
                                        const CheckOptions& options, const Arguments& arguments) {
  std::vector<CheckedScript> scripts;
  for (const std::string& name : names) {
    scripts.push_back(checkScript(planFor(name, arguments), options));
    scripts.back().path = pathForUser(name, arguments);
  }
  return scripts;
}

bool isDry(const Arguments& arguments) { return arguments.value("--fix") == "dry"; }

/// Fixes all scripts before it writes the first one. Returns what is left.
std::vector<CheckedScript> fixScripts(const std::vector<std::string>& names,
                                      const CheckOptions& options, const Arguments& arguments,
                                      Output& output) {
  std::vector<FixedScript> fixed;
  for (const std::string& name : names) {
    fixed.push_back(fixScript(planFor(name, arguments), options));
    fixed.back().left.path = pathForUser(name, arguments);
  }
  std::vector<CheckedScript> left;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (isDry(arguments)) {
      output.results += unifiedDiff(fixed[i].left.path, fixed[i].text);
    } else {
      writeFixed(planFor(names[i], arguments), fixed[i]);
      output.messages += fixCount(fixed[i]);
    }
    left.push_back(std::move(fixed[i].left));
  }
  return left;
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
  const std::string form = formOf(arguments);
  if (isDry(arguments) && form != "text") {
    throw Failure("--fix=dry prints a diff, which has no other form");
  }
  changeDirectory(arguments);
  const std::vector<std::string> names = differentScripts(arguments.operands);
  std::vector<CheckedScript> scripts = arguments.has("--fix")
                                           ? fixScripts(names, options, arguments, output)
                                           : checkScripts(names, options, arguments);
  if (isDry(arguments)) {
    output.messages += problemsAsText(scripts, showsColours(stderr));
  } else {
    output.results = formatted(scripts, form, stdout);
  }
  output.messages += problemCount(scripts);
  return stops(scripts, arguments) ? exitNo : exitYes;
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
          "first lines of the script, for the whole script.\n\n"
          "Paths in the report start from the folder in which tavkit was started, also with -C, so "
          "that editors find the files. Commands in it are for the folder of -C.\n\n"
          "With --fix the script is replaced by one in which these are fixed: the end of its last "
          "line, a byte order mark, a missing ScriptEnd, the case of a file name, a / in a file "
          "name that spoils its define, and a missing SampleRate, which becomes that of the file. "
          "Nothing else in the script changes, and what is left is reported. Problems that are "
          "allowed aren't fixed. The diff of --fix=dry is for patch -p0.",
      .example = "tavkit check sounds.txt",
      .options = joined(
          joined(scriptOptions(), checkOptionRows()),
          {{.names = "--json", .help = "Print one JSON document: --format json"},
           {.names = "--fix",
            .help =
                "Fix what has one safe fix; with =dry print the change as a diff and write nothing",
            .words = {"dry"}},
           {.names = "--list-codes", .help = "List the codes of all problems"}}),
      .run = runCheck,
  };
}

}  // namespace tavrel::kit
