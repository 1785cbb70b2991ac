#include "kit/extract/script_block.h"

#include <fmt/format.h>

#include <algorithm>

#include "compiler/script_language.h"
#include "kit/bank/asset_facts.h"

namespace tavrel::kit {

namespace {

/// Returns the value that a block must state for an option.
std::int32_t valueOf(const Option& option, const tavrel_asset& asset) {
  return option.parameter == kNotStored ? std::int32_t{isCompressedWave(asset)}
                                        : asset.parameters[option.parameter];
}

/// Returns how a script writes a value; nothing for one that it can't write.
std::optional<std::string> writtenValue(const Option& option, std::int32_t value) {
  if (option.value == Value::number ||
      (option.value == Value::flag && (value == 0 || value == 1))) {
    return std::to_string(value);
  }
  const auto word = std::find_if(option.words.begin(), option.words.end(),
                                 [value](const Word& row) { return row.value == value; });
  return word != option.words.end() ? std::optional<std::string>(word->text) : std::nullopt;
}

const Statement* findStatement(std::uint32_t type) {
  const auto* row = std::find_if(kStatements.begin(), kStatements.end(),
                                 [type](const Statement& one) { return one.type == type; });
  return row != kStatements.end() ? row : nullptr;
}

}  // namespace

bool isCompressedWave(const tavrel_asset& wave) {
  const WaveFacts facts = waveFacts(wave);
  return wave.type == TAVREL_WAVE && facts.bits == kAdpcmBits && !facts.loops &&
         wave.size % kAdpcmUnit == 0;
}

std::optional<std::string> blockText(const tavrel_asset& asset, const std::string& file) {
  const Statement* statement = findStatement(asset.type);
  if (statement == nullptr) {
    return std::nullopt;
  }
  std::string text = fmt::format("{} {}\n", statement->keyword, file);
  for (const Option& option : statement->options) {
    const std::int32_t value = valueOf(option, asset);
    const auto written = writtenValue(option, value);
    if (!written) {
      return std::nullopt;
    }
    if (value != option.byDefault) {
      text += fmt::format("  {} {}\n", option.keyword, *written);
    }
  }
  return text + kAssetEnd + '\n';
}

}  // namespace tavrel::kit
