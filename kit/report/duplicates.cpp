#include "kit/report/duplicates.h"

#include <algorithm>
#include <map>

#include "kit/bank/blob_content.h"

namespace tavrel::kit {

namespace {

using Group = std::vector<std::uint32_t>;

/// Returns the ids of blobs that aren't empty by their size.
std::map<std::uint32_t, Group> idsBySize(const BankFile& bank) {
  std::map<std::uint32_t, Group> sizes;
  for (std::uint32_t id = 0; id < bank.assets.size(); ++id) {
    if (bank.assets[id].size > 0) {
      sizes[bank.assets[id].size].push_back(id);
    }
  }
  return sizes;
}

}  // namespace

std::vector<Group> duplicates(BankFile& bank) {
  std::vector<Group> groups;
  for (const auto& [size, ids] : idsBySize(bank)) {
    std::map<std::uint64_t, Group> hashes;
    for (const std::uint32_t id : ids) {
      if (ids.size() > 1) {
        hashes[blobHash(bank, bank.assets[id])].push_back(id);
      }
    }
    for (auto& [hash, group] : hashes) {
      const tavrel_asset& first = bank.assets[group.front()];
      std::erase_if(
          group, [&](std::uint32_t id) { return !equalBlobs(bank, first, bank, bank.assets[id]); });
      if (group.size() > 1) {
        groups.push_back(std::move(group));
      }
    }
  }
  std::sort(groups.begin(), groups.end());
  return groups;
}

}  // namespace tavrel::kit
