// Checks of the files of WaveFile statements, by reader. They set what the bank would hold.
#pragma once

#include <cstdint>
#include <string>

#include "kit/check/asset_check.h"
#include "kit/check/block_findings.h"
#include "kit/check/folder_names.h"
#include "kit/check/sound_check.h"
#include "kit/check/wave_chunks.h"
#include "samples/aiff_file.h"
#include "samples/wave_file.h"

namespace tavrel::kit {

/// Returns the sound of a loaded file as its statement stores it, without its loop.
LoadedSound soundOf(const AiffFile& file);

/// As for an AIFF file, with the loop of the whole sound that Loop 1 makes.
LoadedSound soundOf(const WaveFile& file);

constexpr std::uint16_t kPcm = 1;

/// Returns the format tag that counts: an extensible format has it in its sub-format.
std::uint16_t formatTagOf(const WaveFile& file, const WaveChunks& chunks);

/// Returns what the samples of a WAV file are whose format tag is `tag`, which isn't that of PCM.
std::string encodingName(std::uint16_t tag);

void checkWave(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings);
void checkAiff(CheckedAsset& asset, FolderNames& folders, BlockFindings& findings);

}  // namespace tavrel::kit
