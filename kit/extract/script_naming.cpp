#include "kit/extract/script_naming.h"

#include <algorithm>
#include <tuple>
#include <unordered_map>

#include "foundation/text_utilities.h"
#include "kit/bank/asset_choice.h"

namespace tavrel::kit {

namespace {

/// Table of the files on disk and the assets whose files they are.
class FileTable {
 public:
  FileTable(const ScriptContext& context, const std::string& prefix,
            const std::vector<std::string>& reserved)
      : context_(context), prefix_(prefix), reserved_(reserved) {}

  /// Names an asset after its define. Returns false if that name is no good.
  bool placeUnderDefine(ScriptAsset& asset) {
    const ScriptName name = namesOf(asset).name(0);
    if (name.inScript.empty() || isReserved(name) ||
        !keepsDefine(context_.bank, prefix_, asset.id, name)) {
      return false;
    }
    const auto [entry, isNew] = owners_.emplace(name.onDisk, &asset);
    if (!isNew) {
      if (!serves(context_, *entry->second, asset.id)) {
        return false;
      }
      asset.hasOwnFile = false;
      asset.likeness = Likeness::same;
    }
    asset.name = name;
    return true;
  }

  /// Gives an asset the first name that is free.
  void placeAnywhere(ScriptAsset& asset) {
    const ScriptNames names = namesOf(asset);
    for (std::uint32_t attempt = 0; asset.name.inScript.empty(); ++attempt) {
      const ScriptName name = names.name(attempt);
      if (!name.inScript.empty() && !isReserved(name) &&
          owners_.emplace(name.onDisk, &asset).second) {
        asset.name = name;
      }
    }
  }

 private:
  [[nodiscard]] ScriptNames namesOf(const ScriptAsset& asset) const {
    return {defineWithoutPrefix(context_.bank, asset.id), asset.id, context_.asset(asset.id),
            asset.source};
  }

  [[nodiscard]] bool isReserved(const ScriptName& name) const {
    return std::any_of(reserved_.begin(), reserved_.end(), [&name](const std::string& one) {
      return equalsIgnoringCase(one.c_str(), name.onDisk.c_str());
    });
  }

  const ScriptContext& context_;
  const std::string& prefix_;
  const std::vector<std::string>& reserved_;
  std::unordered_map<std::string, const ScriptAsset*> owners_;
};

/// Returns the assets in the order in which files may serve later ones: sounds with a loop before
/// those without one, uncompressed before compressed ones.
std::vector<ScriptAsset*> servingOrder(std::vector<ScriptAsset>& assets) {
  std::vector<ScriptAsset*> order;
  order.reserve(assets.size());
  for (ScriptAsset& asset : assets) {
    order.push_back(&asset);
  }
  const auto rank = [](const ScriptAsset* asset) {
    const auto& wave = asset->source.wave;
    return std::tuple(wave && wave->isDecoded,
                      !asset->source.isAiff() || !std::get<AiffFileFormat>(wave->format).loop);
  };
  std::stable_sort(order.begin(), order.end(),
                   [rank](const ScriptAsset* left, const ScriptAsset* right) {
                     return rank(left) < rank(right);
                   });
  return order;
}

}  // namespace

bool keepsDefine(const NamedBank& bank, const std::string& prefix, std::uint32_t id,
                 const ScriptName& name) {
  return !bank.header || defineOfFile(prefix, name.inScript) == bank.defines[id];
}

void nameFiles(const ScriptContext& context, const std::string& prefix,
               const std::vector<std::string>& reserved, std::vector<ScriptAsset>& assets) {
  FileTable table(context, prefix, reserved);
  std::vector<ScriptAsset*> others;
  for (ScriptAsset* asset : servingOrder(assets)) {
    if (!table.placeUnderDefine(*asset)) {
      others.push_back(asset);
    }
  }
  for (ScriptAsset* asset : others) {
    table.placeAnywhere(*asset);
  }
}

}  // namespace tavrel::kit
