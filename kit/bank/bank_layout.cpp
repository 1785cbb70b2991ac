#include "kit/bank/bank_layout.h"

#include <algorithm>

#include "compiler/script_language.h"

namespace tavrel::kit {

std::uint64_t paddedSize(const tavrel_asset& asset) {
  const bool isPadded =
      std::any_of(kStatements.begin(), kStatements.end(), [&asset](const Statement& statement) {
        return statement.type == asset.type && statement.padding == Padding::toMultipleOf4;
      });
  return isPadded ? roundUp(asset.size, kBlobAlignment) : asset.size;
}

std::uint64_t dataBytes(const BankFile& bank) {
  std::uint64_t bytes = 0;
  for (const tavrel_asset& asset : bank.assets) {
    bytes += paddedSize(asset);
  }
  return bytes;
}

std::int64_t headerBytes(const BankFile& bank) {
  return static_cast<std::int64_t>(bank.size) - static_cast<std::int64_t>(dataBytes(bank));
}

}  // namespace tavrel::kit
