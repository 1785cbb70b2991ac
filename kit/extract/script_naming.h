// Gives the files of a build script their names. An asset keeps its define if its file can have the
// name for it. Assets with the same define share a file if one serves all of them.
#pragma once

#include <string>
#include <vector>

#include "kit/extract/script_asset.h"

namespace tavrel::kit {

/// Names the files of all assets. `prefix` is that of the defines. No file gets a name in
/// `reserved`, in any case.
void nameFiles(const ScriptContext& context, const std::string& prefix,
               const std::vector<std::string>& reserved, std::vector<ScriptAsset>& assets);

/// Returns true if the asset's define is that in the bank's header, or if there is no header.
bool keepsDefine(const NamedBank& bank, const std::string& prefix, std::uint32_t id,
                 const ScriptName& name);

}  // namespace tavrel::kit
