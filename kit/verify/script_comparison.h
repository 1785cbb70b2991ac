// Comparison of a bank with what its script packs now.
#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "kit/bank/named_bank.h"
#include "kit/pack/packed_script.h"

namespace tavrel::kit {

class ScriptComparison {
 public:
  /// Packs the script, and matches the assets of the two banks: by define, or by id if `bank` has
  /// no header. Throws Failure if the script can't be packed.
  ScriptComparison(const NamedBank& bank, const RunPlan& plan);

  [[nodiscard]] const std::vector<PackedAsset>& scriptAssets() const { return packed_.assets(); }

  /// Returns the id that an asset of the bank has in the script, if that has it.
  [[nodiscard]] std::optional<std::uint32_t> scriptId(std::uint32_t bankId) const {
    return scriptIds_[bankId];
  }

  /// Returns the ids of the script's assets that the bank doesn't have, in ascending order.
  [[nodiscard]] std::vector<std::uint32_t> missingIds() const;

 private:
  void matchByDefine(const NamedBank& bank);
  void matchById();

  PackedScript packed_;
  std::vector<std::optional<std::uint32_t>> scriptIds_;  // by id of the bank
};

}  // namespace tavrel::kit
