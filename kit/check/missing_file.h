// Files that aren't there, and what their names may mean.
#pragma once

#include <string>

#include "kit/check/block_findings.h"
#include "kit/check/folder_names.h"

namespace tavrel::kit {

/// Adds the problem that there is no file called `openedName`.
void reportMissing(const std::string& openedName, FolderNames& folders, BlockFindings& findings);

}  // namespace tavrel::kit
