// The forms in which the problems of scripts are printed.
#pragma once

#include <string>
#include <vector>

#include "kit/check/check_script.h"
#include "kit/check/script_fix.h"
#include "kit/frame/json.h"

namespace tavrel::kit {

/// Returns a line for each problem, in the form that editors parse, and the line of the script with
/// a caret. Coloured if `isColoured`.
std::string problemsAsText(const std::vector<CheckedScript>& scripts, bool isColoured);

/// Returns the document of schemas/check.json.
Json problemsAsJson(const std::vector<CheckedScript>& scripts);

/// Returns a log in the Static Analysis Results Interchange Format, SARIF 2.1.0.
std::string problemsAsSarif(const std::vector<CheckedScript>& scripts);

/// Returns how many problems there are: "1 error, 2 warnings".
std::string problemCount(const std::vector<CheckedScript>& scripts);

/// Returns how many problems have been fixed, or nothing if there were none: "sounds.txt: 2
/// problems fixed".
std::string fixCount(const FixedScript& script);

/// Returns how many problems of a severity there are.
std::size_t countOf(const std::vector<CheckedScript>& scripts, Severity severity);

/// Returns the word for a severity in all forms.
const char* severityName(Severity severity);

}  // namespace tavrel::kit
