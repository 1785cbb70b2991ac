// Which files an extraction writes. Everything that can be known beforehand is checked here, before
// the first of them is written.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kit/bank/named_bank.h"
#include "kit/extract/wave_export.h"

namespace tavrel::kit {

struct ExtractionRequest {
  std::string folder{};  ///< the host's path; empty for the current one
  bool isRaw = false;
  std::uint16_t channels = 1;
  bool replaces = false;  ///< files that exist already
};

struct ExtractedFile {
  std::uint32_t id = 0;
  std::string name{};
  std::string path{};
  std::optional<WaveExport> wave{};  ///< nothing: the asset's bytes as they are
};

/// Returns the files for the assets with these ids. Throws Failure if one of them can't be written
/// over what is there, or is too long for its format.
std::vector<ExtractedFile> plannedFiles(const NamedBank& bank,
                                        const std::vector<std::uint32_t>& ids,
                                        const ExtractionRequest& request);

}  // namespace tavrel::kit
