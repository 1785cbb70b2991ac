// Packs a block of a build script in memory, alone, to see whether it makes an asset of a bank.
#pragma once

#include <string>

#include "kit/bank/bank_file.h"
#include "platform/file_cache.h"

namespace tavrel::kit {

/// What a block makes, compared with an asset.
enum class Likeness {
  same,
  otherBytes,   ///< of the same size
  otherRecord,  ///< another type or size, or other parameters
};

/// Lets the tool pack `block`, which reads its file as `openedName` and finds `content` there. The
/// tool must accept both. Throws Failure if the bank can't be read, and std::bad_alloc if memory
/// runs out.
Likeness tryBlock(const std::string& block, const std::string& openedName, FileCache::Entry content,
                  BankFile& bank, const tavrel_asset& asset);

}  // namespace tavrel::kit
