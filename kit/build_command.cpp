// tavkit build: the tool as a build wants it.
#include <fmt/format.h>

#include <cstdio>

#include "kit/build/build_files.h"
#include "kit/build/build_time.h"
#include "kit/build/declared_files.h"
#include "kit/check/check_options.h"
#include "kit/commands.h"
#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"
#include "kit/frame/output.h"
#include "kit/frame/scoped_file_cache.h"
#include "kit/pack/packed_script.h"
#include "platform/host_path.h"
#include "platform/terminal.h"

namespace tavrel::kit {

namespace {

/// Marks the assets as used. Returns false for one that isn't listed, which is reported.
bool checkDeclared(const BuildInputs& inputs, Output& output) {
  const std::string& list = *inputs.declared;
  DeclaredFiles declared(list);
  for (const std::string& asset : inputs.assets) {
    if (!declared.use(asset)) {
      output.messages +=
          fmt::format("tavkit: {} isn't listed in {}\n", displayText(asset), displayText(list));
      return false;
    }
  }
  for (const std::string& name : declared.unused()) {
    output.messages += fmt::format("tavkit: warning: {} is listed in {} and not used\n",
                                   displayText(name), displayText(list));
  }
  return true;
}

/// Returns false if the script has problems that stop a build. Adds all problems to the messages.
bool checkInputs(const RunPlan& plan, const CheckOptions& options, const Arguments& arguments,
                 Output& output) {
  const std::string form = formOf(arguments);
  std::vector<CheckedScript> scripts;
  scripts.push_back(checkScript(plan, options));
  scripts.back().path = pathForUser(plan.scriptPath, arguments);
  output.messages += formatted(scripts, form, stderr);
  return !stops(scripts, arguments);
}

/// Returns true if nothing is wrong with the script, so that the host must have failed the tool.
bool isPackable(const RunPlan& plan) { return checkScript(plan, {}).count(Severity::error) == 0; }

/// Packs the inputs and writes what has changed. Returns false if the tool can't pack them.
bool pack(const RunPlan& plan, const BuildInputs& inputs, const Arguments& arguments,
          Output& output) {
  try {
    PackedScript packed(plan);
    const auto outputs = changedOutputs(packed, inputs, buildRecords(arguments));
    writeOutputs(outputs);
    if (!arguments.has("--quiet") && isTerminal(stderr)) {
      output.messages += fmt::format("{}: {}\n", displayText(packed.bankPath()),
                                     countText(packed.assets().size(), "asset"));
    }
    return true;
  } catch (const PackFailure& failure) {
    if (isPackable(plan)) {
      throw;
    }
    output.messages += fmt::format("{}tavkit: {}\n", failure.advice(), displayText(failure.what()));
    return false;
  }
}

int runBuild(const Arguments& arguments, Output& output) {
  const CheckOptions options = checkOptions(arguments);  // wrong values are found before all else
  changeDirectory(arguments);
  const RunPlan plan = planFor(arguments.operands.front(), arguments);
  const BuildTime time;
  ScopedFileCache cache;
  BuildInputs inputs = readInputs(plan, cache);
  if (const auto list = arguments.value("--declared")) {
    inputs.declared = hostPath(list->c_str());
  }
  if (inputs.declared && !checkDeclared(inputs, output)) {
    return exitNo;
  }
  for (const std::string& asset : inputs.assets) {
    readIntoCache(asset, cache);
  }
  const bool isGood = arguments.has("--no-check") || checkInputs(plan, options, arguments, output);
  return isGood && pack(plan, inputs, arguments, output) ? exitYes : exitNo;
}

}  // namespace

Command buildCommand() {
  return {
      .name = "build",
      .operands = {.synopsis = "SCRIPT", .fewest = 1, .most = 1, .completion = Completion::script},
      .summary = "Check a script and pack its bank, as a step of a build",
      .description =
          "Reads the script and each asset once, checks them as \"tavkit check\" does, and "
          "packs these very bytes as tavrel does. An error of the script stops the build with "
          "exit code 1. Warnings are printed on standard error; otherwise nothing is printed, "
          "but for one line on a terminal.\n\n"
          "The bank, the header, the depfile and the stamp appear in this order, whole, when "
          "all are complete. A build that fails or is ended by a signal leaves the older ones. "
          "The bank is replaced only if a byte differs, the header only if something other "
          "than its time stamp differs, so that nothing is compiled again without a reason. "
          "The stamp is new after every success. The folders of the outputs must exist. A file "
          "that must change and is read-only is exit code 2.\n\n"
          "The depfile has absolute names; its target is the stamp, or else the bank. With "
          "--declared, an asset that isn't listed in FILE is exit code 1, before it is opened, "
          "and a file that is listed and not used is a warning.\n\n"
          "SOURCE_DATE_EPOCH, in seconds since 1970, is the time that the header gets, in UTC, "
          "so that equal inputs give equal outputs.",
      .example = "tavkit build sounds.txt --depfile sounds.d --stamp sounds.stamp",
      .options = joined(joined(scriptOptions(), checkOptionRows()),
                        {{.names = "--depfile",
                          .value = "FILE",
                          .help = "Write what the bank is made of to FILE, for make and ninja",
                          .completion = Completion::file},
                         {.names = "--stamp",
                          .value = "FILE",
                          .help = "Write an empty FILE when all is done",
                          .completion = Completion::file},
                         {.names = "--declared",
                          .value = "FILE",
                          .help = "Open only the assets that FILE lists, one name a line",
                          .completion = Completion::file},
                         {.names = "--no-check", .help = "Pack as tavrel does, without the check"},
                         {.names = "-q,--quiet", .help = "Don't print the line for a terminal"}}),
      .run = runBuild,
  };
}

}  // namespace tavrel::kit
