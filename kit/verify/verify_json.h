// What the checks of a bank have found, for everything that prints it.
#pragma once

#include <string>
#include <vector>

#include "kit/frame/json.h"
#include "kit/verify/verify.h"

namespace tavrel::kit {

/// Returns true if no check has found anything.
bool isFine(const std::vector<Verdict>& verdicts);

/// Returns the message of a finding, after the asset that it is about.
std::string fullMessage(const NamedBank& bank, const Finding& finding);

/// Returns the document of schemas/verify.json.
Json verdictsAsJson(const Subject& subject, const std::vector<Verdict>& verdicts);

}  // namespace tavrel::kit
