// The rules by which a bank's files, assets and defines get their names.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

#include "compiler/asset_data.h"
#include "foundation/file_name.h"

namespace tavrel {

constexpr std::size_t kLongestGuard = 79;

/// The macro that guards a header against a second inclusion.
using Guard = std::array<char, kLongestGuard + 1>;

// The defines of a bank, each after its prefix and a "_", like those of its assets.
constexpr const char* kFileNameDefine = "FILENAME";
constexpr const char* kDataSizeDefine = "BANK_DATA_SIZE";
constexpr const char* kHeaderSizeDefine = "BANK_HEADER_SIZE";

/// The file name in a header's define is the header's own with this extension, whatever the bank's
/// real extension.
constexpr const char* kBankExtension = ".tvb";

/// Names a header after its bank: sfx.h for sfx.tvb. Keeps the header's path.
void nameHeader(FileName& header, const char* bankName);

/// Sets `name` to the name of the asset whose file name has these two parts, as `getNameOnly` and
/// `getExtensionOnly` of `FileName` return them: boom_wav for boom.wav. Returns false, with `name`
/// unchanged, if it would have more than 79 characters.
bool assetName(std::string_view stem, std::string_view extension, AssetData::Name& name);

/// Sets `guard` to the guard of a header with this base name: _SFX_H for sfx. Returns false, with
/// `guard` unchanged, if it would have more than 79 characters.
bool guardName(std::string_view baseName, Guard& guard);

/// Changes an asset's name to the part of its define after the prefix: upper case, "_" for "~".
void changeToDefine(char* assetName);

// Not used by the tool, which writes a define in parts; for programs that look for one.

/// Returns the define of an asset, or of a bank: SFX_BOOM_WAV for the prefix sfx and boom_wav.
std::string defineName(std::string prefix, std::string name);

}  // namespace tavrel
