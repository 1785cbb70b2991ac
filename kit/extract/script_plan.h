// Plans an extraction that a build script can pack again: which files it writes, the script, and
// which assets won't be the same. The tool packs every asset in memory for it.
#pragma once

#include <string>
#include <vector>

#include "kit/extract/extraction_plan.h"

namespace tavrel::kit {

struct ScriptPlan {
  std::vector<ExtractedFile> files;
  std::string script;              ///< the script's text
  std::vector<std::string> notes;  ///< a line for each asset that won't be the same
};

/// Plans the files of the assets with these ids and their script at `path`. Throws Failure if a
/// file can't be written over what is there or is too long for its format, or if no script at
/// `path` can pack the files.
ScriptPlan planScript(NamedBank& bank, const std::vector<std::uint32_t>& ids,
                      const ExtractionRequest& request, const std::string& path);

}  // namespace tavrel::kit
