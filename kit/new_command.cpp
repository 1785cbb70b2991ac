// tavkit new: a build script from files and folders.
#include <fmt/format.h>

#include <algorithm>
#include <filesystem>

#include "compiler/names.h"
#include "kit/check/bank_check.h"
#include "kit/commands.h"
#include "kit/frame/display_text.h"
#include "kit/frame/failure.h"
#include "kit/frame/output.h"
#include "kit/frame/output_file.h"
#include "kit/frame/required_text.h"
#include "kit/frame/source_file.h"
#include "kit/new/listing.h"
#include "kit/new/script_name.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

namespace fs = std::filesystem;

constexpr const char* kBankAdvice = "Give the bank another name with --bank NAME.\n";

/// Where the script and what belongs to it are. Its folder is the current one.
struct Target {
  std::string shownName;  ///< of the script, as it was given
  RunPlan plan;
  std::vector<std::string> paths;  ///< of the operands, absolute
};

std::string absolutePath(const std::string& name) {
  return name.empty() ? "" : fs::absolute(hostPath(name.c_str())).string();
}

/// Changes to the folder of the script.
Target enterTarget(const Arguments& arguments) {
  changeDirectory(arguments);
  Target target{.shownName = arguments.value("--output").value_or(""), .plan = {}, .paths = {}};
  const fs::path script = hostPath(target.shownName.c_str());
  if (!script.has_filename()) {
    throw Failure("no script to write", "-o SCRIPT names it.\n");
  }
  target.plan = planFor(script.filename().string(), arguments);
  target.plan.bankDirectory = absolutePath(target.plan.bankDirectory);
  target.plan.headerDirectory = absolutePath(target.plan.headerDirectory);
  std::transform(arguments.operands.begin(), arguments.operands.end(),
                 std::back_inserter(target.paths), absolutePath);
  std::error_code error;
  if (script.has_parent_path()) {
    fs::current_path(script.parent_path(), error);
  }
  if (error) {
    throw Failure(fmt::format("can't write {}: {}", target.shownName, error.message()));
  }
  return target;
}

/// Returns the name of a new script's bank. Throws Failure if a script can't have it.
std::string bankName(const Target& target, const Arguments& arguments) {
  const auto given = arguments.value("--bank");
  FileName script(target.plan.scriptPath.c_str());
  const std::string name = given ? *given : requiredText(script.getNameOnly());
  if (name.empty() || name.front() == '.' || std::any_of(name.begin(), name.end(), isForbidden)) {
    throw Failure(fmt::format("a bank can't be called {}", name), kBankAdvice);
  }
  return given && name.find('.') != std::string::npos ? name : name + kBankExtension;
}

/// Throws Failure if the tool can't make defines of the bank's name, or a file is in its way.
void checkNames(const TargetScript& script, const RunPlan& plan) {
  Findings findings;
  checkBank(script.model(), {}, plan, {}, findings);
  for (const Diagnostic& problem : findings.sorted()) {
    if (problem.code->severity == Severity::error) {
      throw Failure(fmt::format("{}. {}", problem.message, problem.hint), kBankAdvice);
    }
  }
}

TargetScript newScript(const Target& target, const Arguments& arguments) {
  std::error_code isMissing;
  if (fs::exists(fs::symlink_status(target.plan.scriptPath, isMissing))) {
    throw Failure(fmt::format("{} exists already; --add adds to it", target.shownName));
  }
  TargetScript script(target.shownName, fmt::format("{} {}\n{}\n", kBankFileName,
                                                    bankName(target, arguments), kScriptEnd));
  checkNames(script, target.plan);
  return script;
}

TargetScript oldScript(const Target& target, const Arguments& arguments) {
  if (arguments.has("--bank")) {
    throw Failure("--bank is for new scripts; with --add the script names its bank");
  }
  return {target.shownName, readFile(target.plan.scriptPath)};
}

int runNew(const Arguments& arguments, Output& output) {
  const bool adds = arguments.has("--add");
  const Target target = enterTarget(arguments);
  const TargetScript script = adds ? oldScript(target, arguments) : newScript(target, arguments);
  const std::deque<NewBlock> entries =
      listFiles(findFiles(target.paths), script, target.plan, arguments.has("--adpcm"));
  int code = exitYes;
  for (const NewBlock& entry : entries) {
    if (!entry.isListed()) {
      output.messages += fmt::format("tavkit: not listed: {}: {}\n", displayText(entry.file.name),
                                     displayText(entry.reason));
      code = exitNo;
    }
  }
  const std::string text = script.with(entries);
  if (!adds || text != script.text()) {
    writeFile(target.plan.scriptPath, text, adds ? Existing::followLink : Existing::refuse);
  }
  return code;
}

}  // namespace

Command newCommand() {
  return {
      .name = "new",
      .operands = {.synopsis = "FILE | FOLDER ... -o SCRIPT",
                   .fewest = 1,
                   .most = Operands::kAnyNumber,
                   .completion = Completion::file},
      .summary = "Write a build script for files and folders of sounds",
      .description =
          "Writes a build script with a block for each file, sorted by name. All files in a folder "
          "and in the folders inside it are listed, except hidden ones, whose names start with a "
          "dot. The content of a file decides what it is: WAV "
          "and AIFF files are waves, MIDI files are sequences, and all other files are user "
          "assets. Waves get the SampleRate of the file, and Loop 1 if the file has loop points of "
          "its own. Names are relative to the folder of SCRIPT: run tavrel there.\n\n"
          "A file that can't be listed becomes a comment with the reason and, where there is one, "
          "the command that fixes it, to be run in the folder of SCRIPT. Such files are those with "
          "a space in their names, sounds in other forms such as MP3, sounds whose extension makes "
          "tavrel choose another reader, and those whose define is taken or isn't a C identifier. "
          "A file with the extension of a sound or a sequence that is neither is a damaged one. A "
          "line on standard error names each of them, and the exit code is 1. tavkit check finds "
          "no error in the rest.\n\n"
          "SCRIPT, its bank and its header are never listed. The bank is named after the script. "
          "Links are followed, but each folder is listed once.\n\n"
          "If SCRIPT exists, nothing is written, unless --add is given: then files that aren't in "
          "the script are put before its ScriptEnd, so that all assets in it keep their ids.",
      .example = "tavkit new sounds music -o game.txt --adpcm",
      .options = joined(
          {{.names = "-o,--output",
            .value = "SCRIPT",
            .help = "Write the script SCRIPT, which must be new unless --add is given",
            .completion = Completion::script},
           {.names = "--bank", .value = "NAME", .help = "Name the bank NAME, not after the script"},
           {.names = "--adpcm", .help = "Compress 16-bit sounds that don't loop: Adpcm 1"},
           {.names = "--add", .help = "Add the files that aren't in SCRIPT yet to it"}},
          scriptOptions()),
      .run = runNew,
  };
}

}  // namespace tavrel::kit
