// What a report shows: a bank with its verdicts, and the check and the quality of its script.
#pragma once

#include <optional>
#include <vector>

#include "kit/check/check_script.h"
#include "kit/frame/json.h"
#include "kit/quality/script_quality.h"
#include "kit/verify/verify.h"

namespace tavrel::kit {

struct ReportData {
  Subject subject;  ///< without a script that doesn't pack
  std::vector<Verdict> verdicts{};
  std::optional<CheckedScript> check{};  ///< none without a script
  std::vector<JudgedWave> waves{};       ///< of the script

  /// Returns the wave of the script that an asset of the bank was made from; null if there is none
  /// or the script packs something else now. Throws Failure if the bank can't be read.
  const JudgedWave* judgedWave(std::uint32_t id);
};

/// Verifies the bank and, with a plan, checks its script. Throws Failure if a file can't be read.
ReportData reportData(NamedBank bank, const std::optional<RunPlan>& plan);

/// Returns the page's first document: those of the commands, and what belongs to the whole bank.
Json reportAsJson(ReportData& data);

}  // namespace tavrel::kit
