// What the report shows of a sequence: its notes, tempos and bars.
#pragma once

#include "kit/bank/bank_file.h"
#include "kit/frame/json.h"

namespace tavrel::kit {

/// Returns the notes and changes of a sequence, up to its end or the place at which it breaks off.
/// Throws Failure if the blob can't be read.
Json sequencePicture(BankFile& bank, const tavrel_asset& asset);

}  // namespace tavrel::kit
