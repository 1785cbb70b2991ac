#include "kit/check/bank_names.h"

#include <fmt/format.h>

#include "compiler/bank_script.h"
#include "compiler/names.h"
#include "kit/check/loaded_script.h"
#include "kit/frame/required_text.h"

namespace tavrel::kit {

namespace {

/// Returns a script that only names the bank.
std::string scriptOfNames(const ScriptModel& script) {
  std::string text;
  for (const ScriptWord& name : script.bankNames) {
    text += fmt::format("{} {}\n", kBankFileName, name.text);
  }
  return text;
}

}  // namespace

std::string BankNames::define(const std::string& name) const { return defineName(prefix, name); }

BankNames nameBank(const ScriptModel& script, const RunPlan& plan) {
  LoadedText<BankScript> run(scriptOfNames(script), plan.scriptPath.c_str());
  run.setHeaderPrefix(plan.prefix.c_str());
  run.bankFileName.setPath(plan.bankDirectory.c_str());
  run.headerFileName.setPath(plan.headerDirectory.c_str());
  run.parseStatements();
  BankNames names{.prefix = run.prefix()};
  const bool isNamed = !script.bankNames.empty() && !script.bankNames.back().text.empty();
  if (isNamed) {
    names.word = &script.bankNames.back();
    names.bankPath = requiredText(run.bankFileName.getNameAndPath());
    names.headerPath = requiredText(run.headerFileName.getNameAndPath());
    names.baseName = requiredText(run.headerFileName.getNameOnly());
  }
  return names;
}

}  // namespace tavrel::kit
