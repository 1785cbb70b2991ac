#include "kit/verify/script_comparison.h"

#include <algorithm>
#include <deque>
#include <map>
#include <string_view>

namespace tavrel::kit {

ScriptComparison::ScriptComparison(const NamedBank& bank, const RunPlan& plan)
    : packed_(plan), scriptIds_(bank.assets().size()) {
  bank.header ? matchByDefine(bank) : matchById();
}

/// Assets with the same define are matched in the order of their ids.
void ScriptComparison::matchByDefine(const NamedBank& bank) {
  std::map<std::string_view, std::deque<std::uint32_t>> idsByDefine;
  for (std::uint32_t id = 0; id < scriptAssets().size(); ++id) {
    idsByDefine[scriptAssets()[id].define].push_back(id);
  }
  for (std::uint32_t id = 0; id < scriptIds_.size(); ++id) {
    const auto found = idsByDefine.find(bank.defines[id]);
    if (found != idsByDefine.end() && !found->second.empty()) {
      scriptIds_[id] = found->second.front();
      found->second.pop_front();
    }
  }
}

void ScriptComparison::matchById() {
  const std::size_t count = std::min(scriptIds_.size(), scriptAssets().size());
  for (std::uint32_t id = 0; id < count; ++id) {
    scriptIds_[id] = id;
  }
}

std::vector<std::uint32_t> ScriptComparison::missingIds() const {
  std::vector<bool> isThere(scriptAssets().size());
  for (const auto& id : scriptIds_) {
    if (id) {
      isThere[*id] = true;
    }
  }
  std::vector<std::uint32_t> ids;
  for (std::uint32_t id = 0; id < isThere.size(); ++id) {
    if (!isThere[id]) {
      ids.push_back(id);
    }
  }
  return ids;
}

}  // namespace tavrel::kit
