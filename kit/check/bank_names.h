// The names that a script gives to its bank, as a run of the tool takes them.
#pragma once

#include <string>

#include "kit/check/script_model.h"
#include "kit/frame/script_options.h"

namespace tavrel::kit {

struct BankNames {
  const ScriptWord* word = nullptr;  ///< after the last BankFileName; null if there is none
  std::string bankPath{};  ///< as the tool opens it; empty without a name, as the header's
  std::string headerPath{};
  std::string baseName{};  ///< of the header, without its extension: of the guard and _FILENAME
  std::string prefix{};    ///< of all defines, not yet in capitals

  /// Returns the define of an asset's name, or of one of the bank's own.
  [[nodiscard]] std::string define(const std::string& name) const;
};

/// Returns the names of the bank. Borrows the script.
BankNames nameBank(const ScriptModel& script, const RunPlan& plan);

}  // namespace tavrel::kit
