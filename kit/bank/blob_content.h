// Compares blobs of banks on disk in pieces, so that their size doesn't matter.
#pragma once

#include <cstdint>

#include "kit/bank/bank_file.h"

namespace tavrel::kit {

/// Returns true if the two blobs have the same bytes. The two banks may be the same one. Throws
/// Failure if a blob can't be read.
bool equalBlobs(BankFile& firstBank, const tavrel_asset& first, BankFile& secondBank,
                const tavrel_asset& second);

/// Returns true if the blob has the bytes at `bytes`, which are as many. Throws Failure if the blob
/// can't be read.
bool holds(BankFile& bank, const tavrel_asset& asset, const std::uint8_t* bytes);

/// Returns a number that is the same for equal blobs, in this run of the program only: it depends
/// on a random number so that nobody can prepare many blobs with the same one. Throws Failure if
/// the blob can't be read.
std::uint64_t blobHash(BankFile& bank, const tavrel_asset& asset);

}  // namespace tavrel::kit
