// Checks of the files of WaveFile statements, by reader. They set what the bank would hold.
#pragma once

#include "kit/check/asset_check.h"
#include "kit/check/block_findings.h"
#include "kit/check/folder_names.h"

namespace tavrel::kit {

void checkWave(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings);
void checkAiff(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings);

}  // namespace tavrel::kit
