// All checks of one script.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "kit/check/diagnostic.h"
#include "kit/check/source_text.h"
#include "kit/frame/script_options.h"

namespace tavrel::kit {

/// What a check is asked for.
struct CheckOptions {
  std::vector<std::string> allowed{};        ///< codes of warnings that aren't reported
  std::optional<std::uint64_t> mostBytes{};  ///< of the bank's file
  std::optional<double> lowestQuality{};     ///< of compressed sounds, in decibels
};

/// What was found in one script, without what is allowed.
struct CheckedScript {
  std::string path;  ///< for messages; as the check opens it
  SourceText text;
  std::vector<Diagnostic> diagnostics;  ///< in the order of their places

  [[nodiscard]] std::size_t count(Severity severity) const;
};

/// Checks a script whose text is in memory.
CheckedScript checkText(std::string text, const RunPlan& plan, const CheckOptions& options);

/// Checks a script. Throws Failure if it can't be read.
CheckedScript checkScript(const RunPlan& plan, const CheckOptions& options);

}  // namespace tavrel::kit
