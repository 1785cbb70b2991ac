// What the checks of a bank have found, as JSON.
#pragma once

#include <vector>

#include "kit/frame/json.h"
#include "kit/verify/verify.h"

namespace tavrel::kit {

/// Returns the document of schemas/verify.json.
Json verdictsAsJson(const Subject& subject, const std::vector<Verdict>& verdicts);

}  // namespace tavrel::kit
