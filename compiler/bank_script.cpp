#include "compiler/bank_script.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

namespace tavrel {

namespace {

constexpr std::size_t kFirstRoom = 64;

/// Makes sure that the next push_back takes no memory.
template <typename Record>
void makeRoom(std::vector<Record>& records) {
  if (records.size() == records.capacity()) {
    records.reserve(std::max(kFirstRoom, 2 * records.capacity()));
  }
}

}  // namespace

BankScript::BankScript(const char* scriptName) : TokenFile(scriptName) {}

bool BankScript::setHeaderPrefix(const char* prefix) {
  headerPrefix[0] = '\0';
  if (prefix == nullptr || std::strlen(prefix) > kLongestPrefix) {
    return false;
  }
  std::strcpy(headerPrefix.data(), prefix);
  return true;
}

bool BankScript::hasRoomForAsset() const {
  return nextAssetId <= std::numeric_limits<std::int16_t>::max();
}

bool BankScript::storeAsset(std::unique_ptr<AssetData> asset, std::unique_ptr<AssetEntry> entry) {
  if (!hasRoomForAsset()) {
    return false;
  }
  try {
    // Room first, so that the two vectors can't come to differ in length.
    makeRoom(assets);
    makeRoom(entries);
  } catch (const std::bad_alloc&) {
    return false;
  }
  asset->id = static_cast<std::int16_t>(nextAssetId);
  ++nextAssetId;
  assets.push_back(std::move(asset));
  entries.push_back(std::move(entry));
  return true;
}

}  // namespace tavrel
