// Checks of a bank against its script: that it is what the tool would pack now.
#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "kit/bank/blob_content.h"
#include "kit/frame/display_text.h"
#include "kit/verify/verify.h"

namespace tavrel::kit {

namespace {

/// Returns how an asset of the bank differs from that of the script, one text for each difference.
std::vector<std::string> differences(BankFile& bank, const tavrel_asset& asset,
                                     const tavrel_asset& packed) {
  std::vector<std::string> texts;
  if (asset.type != packed.type) {
    texts.push_back(
        fmt::format("its type is {}, not {}", typeName(asset.type), typeName(packed.type)));
  }
  if (asset.size != packed.size) {
    texts.push_back(fmt::format("it has {} bytes, not {}", asset.size, packed.size));
  } else if (!holds(bank, asset, packed.bytes)) {
    texts.emplace_back("its bytes are others");
  }
  for (std::size_t word = 0; word < std::size(asset.parameters); ++word) {
    if (asset.parameters[word] != packed.parameters[word]) {
      texts.push_back(fmt::format("its parameter {} is {}, not {}", word, asset.parameters[word],
                                  packed.parameters[word]));
    }
  }
  return texts;
}

void findStale(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    const auto scriptId = subject.script->scriptId(id);
    if (!scriptId) {
      continue;
    }
    const std::vector<std::string> texts =
        differences(subject.bank.file, subject.file().assets[id],
                    subject.script->scriptAssets()[*scriptId].record);
    if (!texts.empty()) {
      findings.add(id, fmt::format("{}", fmt::join(texts, ", ")));
    }
  }
}

void findMissing(Subject& subject, BankFindings& findings) {
  for (const std::uint32_t id : subject.script->missingIds()) {
    const PackedAsset& asset = subject.script->scriptAssets()[id];
    findings.add(fmt::format("the bank doesn't have {}, asset {} of the script, made from {}",
                             displayText(asset.define), id, displayText(asset.file)));
  }
}

void findExtra(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    if (!subject.script->scriptId(id)) {
      findings.add(id, "the script doesn't have it");
    }
  }
}

/// Compares the order of the assets that both have, so that one that was inserted or removed moves
/// no other.
void findReordered(Subject& subject, BankFindings& findings) {
  std::vector<std::uint32_t> bankIds;
  std::vector<std::uint32_t> scriptIds;
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    if (const auto scriptId = subject.script->scriptId(id)) {
      bankIds.push_back(id);
      scriptIds.push_back(*scriptId);
    }
  }
  std::vector<std::uint32_t> sortedIds = scriptIds;
  std::sort(sortedIds.begin(), sortedIds.end());
  for (std::size_t i = 0; i < bankIds.size(); ++i) {
    if (scriptIds[i] != sortedIds[i]) {
      findings.add(bankIds[i],
                   fmt::format("the script has it in another place, as asset {}", scriptIds[i]));
    }
  }
}

constexpr std::array<Check, 4> kScriptChecks{{
    {"stale", "all assets are what the script packs", findStale},
    {"missing", "all assets of the script are there", findMissing},
    {"extra", "the script has all assets", findExtra},
    {"reordered", "the assets have the order of the script", findReordered},
}};

}  // namespace

std::span<const Check> scriptChecks() { return kScriptChecks; }

}  // namespace tavrel::kit
