// What a bank holds, as the JSON document of schemas/list.json.
#pragma once

#include "kit/bank/named_bank.h"
#include "kit/frame/json.h"

namespace tavrel::kit {

/// Reads the blobs of sequences, one at a time. Throws Failure if one can't be read.
Json bankAsJson(NamedBank& bank);

}  // namespace tavrel::kit
