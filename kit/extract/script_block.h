// Blocks of the script language, made from the records of assets: the tables of
// compiler/script_language.h read the other way round.
#pragma once

#include <tavrel/bank.h>

#include <optional>
#include <string>

namespace tavrel::kit {

/// Returns true if the tool can have compressed a wave: it is of 4 bits, doesn't loop, and is as
/// long as a stream of ADPCM. Other waves of 4 bits come from WAV files of that width.
bool isCompressedWave(const tavrel_asset& wave);

/// Returns the block that makes an asset of this type with these parameters, as far as the script
/// states them, from the file called `file`. Returns nothing if no statement does.
std::optional<std::string> blockText(const tavrel_asset& asset, const std::string& file);

}  // namespace tavrel::kit
