#include "kit/check/script_fix.h"

#include "kit/frame/output_file.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

std::vector<Edit> editsOf(const CheckedScript& script) {
  std::vector<Edit> edits;
  for (const Diagnostic& diagnostic : script.diagnostics) {
    if (diagnostic.edit) {
      edits.push_back(*diagnostic.edit);
    }
  }
  return edits;
}

}  // namespace

FixedScript fixScript(const RunPlan& plan, const CheckOptions& options) {
  // A fix can make others possible: a file that is found has a rate. None undoes another one.
  constexpr int kMostRounds = 16;
  const std::string original = readFile(plan.scriptPath);
  FixedScript fixed{.text = EditedText(original), .left = checkText(original, plan, options)};
  for (int round = 0; round < kMostRounds; ++round) {
    const std::size_t count = fixed.text.apply(editsOf(fixed.left));
    if (count == 0) {
      break;
    }
    fixed.fixCount += count;
    fixed.left = checkText(fixed.text.text(), plan, options);
  }
  return fixed;
}

void writeFixed(const RunPlan& plan, const FixedScript& script) {
  if (script.fixCount > 0) {
    writeFile(hostPath(plan.scriptPath.c_str()), script.left.text.text(), Existing::followLink);
  }
}

}  // namespace tavrel::kit
