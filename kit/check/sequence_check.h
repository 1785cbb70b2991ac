// Checks of the files of MidiFileType0 statements.
#pragma once

#include "kit/check/asset_check.h"
#include "kit/check/block_findings.h"
#include "kit/check/folder_names.h"

namespace tavrel::kit {

/// Checks the file, and sets what the bank would hold of it.
void checkSequence(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings);

}  // namespace tavrel::kit
