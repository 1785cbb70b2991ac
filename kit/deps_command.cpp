// tavkit deps: the files that a bank is made of, for make and ninja.
#include <fmt/format.h>

#include "kit/check/bank_names.h"
#include "kit/check/opened_names.h"
#include "kit/check/run_file.h"
#include "kit/commands.h"
#include "kit/deps/depfile.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/failure.h"
#include "kit/frame/output.h"
#include "kit/frame/output_file.h"
#include "kit/frame/script_options.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Returns the target of the rule: the one that is asked for, or the bank.
std::string targetOf(const Arguments& arguments, const BankNames& names, const RunPlan& plan) {
  if (const auto target = arguments.value("--target")) {
    return *target;
  }
  if (names.word == nullptr) {
    throw Failure(fmt::format("{} doesn't name its bank; --target names the target of the depfile",
                              plan.scriptPath));
  }
  return hostPath(names.bankPath.c_str());
}

/// Throws Failure if the depfile would replace a file of the bank: one that it lists, the bank or
/// its header.
void requireOtherFile(const std::string& depfile, const std::string& script,
                      const std::vector<std::string>& assets, const BankNames& names) {
  std::vector<std::string> others = assets;
  others.push_back(script);
  if (names.word != nullptr) {
    others.push_back(hostPath(names.bankPath.c_str()));
    others.push_back(hostPath(names.headerPath.c_str()));
  }
  if (isOneOf(depfile, others)) {
    throw Failure(fmt::format("the depfile would replace {}, which belongs to the bank", depfile));
  }
}

BankNames namesOf(const ScriptModel& script, const RunPlan& plan) {
  const CapturedConsole silence;
  return nameBank(script, plan);
}

int runDeps(const Arguments& arguments, Output& output) {
  changeDirectory(arguments);
  const RunPlan plan = planFor(arguments.operands.front(), arguments);
  const ScriptModel model = modelOf(plan.scriptPath);
  const std::string script = hostPath(plan.scriptPath.c_str());
  const std::vector<std::string> assets = openedNames(model);
  const BankNames names = namesOf(model, plan);
  std::string text = depfileText(targetOf(arguments, names, plan), script, assets);
  if (const auto path = arguments.value("--output")) {
    const std::string depfile = hostPath(path->c_str());
    requireOtherFile(depfile, script, assets, names);
    writeFile(depfile, text, Existing::followLink);
  } else {
    output.results = std::move(text);
  }
  return exitYes;
}

}  // namespace

Command depsCommand() {
  return {
      .name = "deps",
      .operands = {.synopsis = "SCRIPT", .fewest = 1, .most = 1, .completion = Completion::script},
      .summary = "List the files that a bank is made of, for make and ninja",
      .description =
          "Prints a depfile: a rule by which the bank depends on the script and on every asset up "
          "to ScriptEnd. The names are those that tavrel opens, from the current folder or that of "
          "-C. Assets that are missing are listed too, and other faults of the script don't "
          "matter.\n\n"
          "Each asset also has an empty rule, so that make survives one that is gone from both the "
          "script and the disk. An asset with % in its name has none.\n\n"
          "Make and ninja both read the file. Spaces, #, $ and : are escaped. A name that one of "
          "them would read differently is exit code 2. It has one of \" ' & * ; < = > ? [ ^ | or a "
          "backtick in it, a ~ at its start, a ), a :, a space or a backslash at its end, a "
          "backslash before a space, #, : or $, or a control character. The target has no % "
          "either. A special target such as .PHONY and the words define and undefine are refused "
          "as well.",
      .example = "tavkit deps sounds.txt --target sfx.tvb -o sfx.d",
      .options =
          joined(scriptOptions(), {{.names = "--target",
                                    .value = "NAME",
                                    .help = "The target of the rule, instead of the bank's path"},
                                   {.names = "-o,--output",
                                    .value = "FILE",
                                    .help = "Write the depfile to FILE, replacing an older one",
                                    .completion = Completion::file}}),
      .run = runDeps,
  };
}

}  // namespace tavrel::kit
