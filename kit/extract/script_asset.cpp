#include "kit/extract/script_asset.h"

#include <fmt/format.h>

#include "kit/bank/asset_choice.h"
#include "kit/extract/script_block.h"
#include "kit/frame/failure.h"
#include "samples/adpcm_stream.h"

namespace tavrel::kit {

namespace {

/// Lets the tool make an asset from the file of `owner`. Returns nothing if no block has the
/// asset's parameters.
std::optional<Likeness> tryFile(const ScriptContext& context, std::uint32_t id,
                                const ScriptAsset& owner) {
  const std::string name = owner.source.isAiff() ? "asset.aif" : "asset";
  const auto block = blockText(context.asset(id), name);
  if (!block) {
    return std::nullopt;
  }
  BankFile& bank = context.bank.file;
  const AssetSource source{bank, context.asset(owner.id), context.progress};
  return tryBlock(*block, name, fileContent(source, owner.source), bank, context.asset(id));
}

/// Returns false if the sizes alone show that a file doesn't serve an asset. Otherwise the file is
/// no longer than a few times the asset, so that trying it is no waste.
bool canServe(const ScriptContext& context, const ScriptAsset& owner, std::uint32_t id) {
  const tavrel_asset& asset = context.asset(id);
  if (!owner.source.wave || asset.type != TAVREL_WAVE) {
    return !owner.source.wave && asset.type != TAVREL_WAVE &&
           asset.size == context.asset(owner.id).size;
  }
  const auto size = static_cast<std::uint32_t>(owner.source.wave->sampleBytes);
  return asset.size == (isCompressedWave(asset) ? adpcmStreamSize(size) : size);
}

}  // namespace

std::optional<ScriptAsset> planAsset(const ScriptContext& context, std::uint32_t id) {
  const bool prefersAiff = isAiffDefine(defineWithoutPrefix(context.bank, id));
  auto source = scriptSourceOf(context.bank.file, context.asset(id), prefersAiff, context.channels);
  if (!source) {
    return std::nullopt;
  }
  if (source->wave && !fitsItsFormat(*source->wave)) {
    throw Failure(fmt::format("asset {} is too long for a WAV file", id));
  }
  ScriptAsset planned{.id = id, .source = std::move(*source)};
  const auto likeness = tryFile(context, id, planned);
  if (!likeness || *likeness == Likeness::otherRecord) {
    return std::nullopt;
  }
  planned.likeness = *likeness;
  return planned;
}

bool serves(const ScriptContext& context, const ScriptAsset& owner, std::uint32_t id) {
  return canServe(context, owner, id) && tryFile(context, id, owner) == Likeness::same;
}

}  // namespace tavrel::kit
