// The layout of a bank, as the tool writes it, worked out from its table.
#pragma once

#include <cstdint>

#include "kit/bank/bank_file.h"

namespace tavrel::kit {

/// Returns the size of an asset's blob with its padding. Blobs of unknown types have none.
std::uint64_t paddedSize(const tavrel_asset& asset);

/// Returns the size of all blobs with their padding: PREFIX_BANK_DATA_SIZE of the generated header.
std::uint64_t dataBytes(const BankFile& bank);

/// Returns the rest of the bank, its table and the padding at its end: PREFIX_BANK_HEADER_SIZE.
/// Negative where blobs lie closer than the tool would put them.
std::int64_t headerBytes(const BankFile& bank);

}  // namespace tavrel::kit
