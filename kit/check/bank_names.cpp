#include "kit/check/bank_names.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>

#include "compiler/bank_script.h"
#include "compiler/names.h"
#include "kit/frame/required_text.h"

namespace tavrel::kit {

namespace {

/// Lets the tool parse a script that only names the bank.
void parseNames(const ScriptModel& script, BankScript& run) {
  std::string text;
  for (const ScriptWord& name : script.bankNames) {
    text += fmt::format("{} {}\n", kBankFileName, name.text);
  }
  auto block = std::make_unique<std::uint8_t[]>(text.size());
  std::copy(text.begin(), text.end(), block.get());
  run.useMemory(block.release(), text.size());
  run.parseStatements();
  run.freeData();
}

}  // namespace

std::string BankNames::define(const std::string& name) const { return defineName(prefix, name); }

BankNames nameBank(const ScriptModel& script, const RunPlan& plan) {
  BankScript run(plan.scriptPath.c_str());
  run.setHeaderPrefix(plan.prefix.c_str());
  run.bankFileName.setPath(plan.bankDirectory.c_str());
  run.headerFileName.setPath(plan.headerDirectory.c_str());
  parseNames(script, run);
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
