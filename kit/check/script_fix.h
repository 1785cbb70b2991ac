// What `tavkit check --fix` does: applies the edits that belong to the problems of a script until
// none is left.
#pragma once

#include "kit/check/check_script.h"
#include "kit/check/edited_text.h"

namespace tavrel::kit {

/// A script with the fixes that are safe.
struct FixedScript {
  EditedText text;
  std::size_t fixCount = 0;
  CheckedScript left;  ///< the fixed script, with the problems that it still has
};

/// Checks a script and fixes it in memory. Throws Failure if it can't be read.
FixedScript fixScript(const RunPlan& plan, const CheckOptions& options);

/// Replaces the file of a script by the fixed one, unless nothing has changed. Throws Failure if it
/// can't be written; then the old one is whole.
void writeFixed(const RunPlan& plan, const FixedScript& script);

}  // namespace tavrel::kit
