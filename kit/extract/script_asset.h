// An asset as a build script packs it again, and whether it comes out the same.
#pragma once

#include <optional>

#include "kit/bank/named_bank.h"
#include "kit/extract/block_trial.h"
#include "kit/extract/script_names.h"
#include "kit/extract/script_source.h"

namespace tavrel::kit {

struct ScriptAsset {
  std::uint32_t id = 0;
  ScriptSource source{};
  Likeness likeness = Likeness::same;  ///< of what its block makes from its own file
  ScriptName name{};
  bool hasOwnFile = true;  ///< false if the file of another asset serves
};

/// What is needed to plan the assets of a bank.
struct ScriptContext {
  NamedBank& bank;
  std::uint16_t channels;
  Progress& progress;

  [[nodiscard]] const tavrel_asset& asset(std::uint32_t id) const { return bank.assets()[id]; }
};

/// Lets the tool make an asset from its own file, in memory. Returns nothing if no statement makes
/// an asset with this record. Throws Failure if a file is too long for its format.
std::optional<ScriptAsset> planAsset(const ScriptContext& context, std::uint32_t id);

/// Returns true if the file of `owner` serves another asset just as well: the tool makes the same
/// bytes of it.
bool serves(const ScriptContext& context, const ScriptAsset& owner, std::uint32_t id);

}  // namespace tavrel::kit
