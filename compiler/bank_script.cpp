#include "compiler/bank_script.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace tavrel {

namespace {

constexpr std::size_t kFirstCapacity = 64;

/// Reserves room so that the next push_back can't throw.
template <typename Record>
void reserveNext(std::vector<Record>& records) {
  if (records.size() == records.capacity()) {
    records.reserve(std::max(kFirstCapacity, 2 * records.capacity()));
  }
}

}  // namespace

BankScript::BankScript(const char* scriptName) : TokenFile(scriptName) {}

bool BankScript::setHeaderPrefix(const char* prefix) {
  headerPrefix_[0] = '\0';
  if (prefix == nullptr || std::strlen(prefix) > kLongestPrefix) {
    return false;
  }
  std::strcpy(headerPrefix_.data(), prefix);
  return true;
}

bool BankScript::hasRoomForAsset() const { return nextAssetId_ < kMostAssets; }

bool BankScript::storeAsset(std::unique_ptr<AssetData> asset, std::unique_ptr<AssetEntry> entry) {
  if (!hasRoomForAsset()) {
    return false;
  }
  try {
    // Both first, so that the two vectors always have the same length.
    reserveNext(assets);
    reserveNext(entries);
  } catch (const std::bad_alloc&) {
    return false;
  }
  asset->id = static_cast<std::int16_t>(nextAssetId_);
  ++nextAssetId_;
  assets.push_back(std::move(asset));
  entries.push_back(std::move(entry));
  return true;
}

bool BankScript::setAssetOffset(std::int16_t id, std::uint32_t offset) {
  entries[static_cast<std::size_t>(id)]->offset = offset;
  return true;
}

std::uint32_t BankScript::assetCount() const { return static_cast<std::uint32_t>(entries.size()); }

std::uint64_t BankScript::blobBytes() const {
  std::uint64_t bytes = 0;
  for (const auto& asset : assets) {
    bytes += asset->paddedSize;
  }
  return bytes;
}

}  // namespace tavrel
