// All files that `tavkit new` has found, as blocks of one script: what each of them is, and which
// of them the script can list beside the others.
#pragma once

#include <deque>
#include <vector>

#include "kit/frame/script_options.h"
#include "kit/new/new_block.h"
#include "kit/new/target_script.h"

namespace tavrel::kit {

/// Returns the entries for all `files` that aren't in the script yet and aren't the script, its
/// bank or its header. `plan` says where these are.
std::deque<NewBlock> listFiles(const std::vector<FoundFile>& files, const TargetScript& script,
                               const RunPlan& plan, bool wantsAdpcm);

}  // namespace tavrel::kit
