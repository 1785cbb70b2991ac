#include "kit/check/check_script.h"

#include <fmt/format.h>

#include <algorithm>

#include "kit/check/allowances.h"
#include "kit/check/asset_check.h"
#include "kit/check/bank_check.h"
#include "kit/check/folder_names.h"
#include "kit/check/loaded_script.h"
#include "kit/check/quality_check.h"
#include "kit/check/script_model.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/source_file.h"

namespace tavrel::kit {

namespace {

Findings findProblems(const SourceText& text, const RunPlan& plan, const CheckOptions& options,
                      ScriptModel& model) {
  Findings findings;
  const CapturedConsole silence;
  LoadedScript script(text.text());
  model = readScript(script, findings);
  FolderNames folders;
  std::vector<CheckedAsset> assets;
  for (const ScriptBlock& block : model.blocks) {
    if (!block.file) {
      continue;
    }
    assets.push_back(checkAsset(block, folders, findings));
    if (options.lowestQuality) {
      checkQuality(assets.back(), *options.lowestQuality, findings);
    }
    // After a file that is missing, it was taken for the rest of the name.
    if (block.strayWord && !assets.back().isMissing) {
      findings.add("unknown-word", block.strayWord->offset,
                   fmt::format("{}: {} isn't an option of {}", block.title(), block.strayWord->text,
                               block.row->keyword));
    }
  }
  checkBank(model, assets, plan, options.mostBytes, findings);
  return findings;
}

/// Takes the fix from a last word that lacks its newline if the word would be wrong when read.
void keepLastWordUnread(std::vector<Diagnostic>& diagnostics) {
  const auto last = std::find_if(diagnostics.begin(), diagnostics.end(), [](const Diagnostic& one) {
    return one.code->name == "last-word";
  });
  const bool isWrong =
      last != diagnostics.end() &&
      std::any_of(diagnostics.begin(), diagnostics.end(), [&last](const Diagnostic& one) {
        return one.code->severity == Severity::error && one.offset == last->offset &&
               one.code != last->code;
      });
  if (isWrong) {
    last->edit.reset();
  }
}

}  // namespace

std::size_t CheckedScript::count(Severity severity) const {
  return static_cast<std::size_t>(
      std::count_if(diagnostics.begin(), diagnostics.end(),
                    [severity](const Diagnostic& one) { return one.code->severity == severity; }));
}

CheckedScript checkText(std::string text, const RunPlan& plan, const CheckOptions& options) {
  CheckedScript checked{
      .path = plan.scriptPath, .text = SourceText(std::move(text)), .diagnostics = {}};
  ScriptModel model;
  Findings findings = findProblems(checked.text, plan, options, model);
  Allowances allowances(checked.text, model, findings);
  allowances.allowEverywhere(options.allowed);
  for (Diagnostic& diagnostic : findings.sorted()) {
    if (!allowances.allow(diagnostic)) {
      checked.diagnostics.push_back(std::move(diagnostic));
    }
  }
  keepLastWordUnread(checked.diagnostics);
  return checked;
}

CheckedScript checkScript(const RunPlan& plan, const CheckOptions& options) {
  return checkText(readFile(plan.scriptPath), plan, options);
}

}  // namespace tavrel::kit
