// Checks of the parameters in an asset's record.
#include <fmt/format.h>

#include <array>
#include <limits>

#include "compiler/bank_format.h"
#include "kit/verify/verify.h"

namespace tavrel::kit {

namespace {

/// Values that a parameter may have. Parameters without a row may have any.
struct Range {
  AssetType type;
  int parameter;
  const char* meaning;
  std::int32_t least, most;
};

constexpr std::int32_t kMostTempo = 0xFFFFFF;  // three bytes in a sequence

constexpr std::array<Range, 5> kRanges{{
    {typeWave, waveLoop, "loop flag", 0, 1},
    {typeWave, waveBitsPerSample, "number of bits per sample", 0,
     std::numeric_limits<std::uint16_t>::max()},
    {typeMidi, sequenceDivision, "division", std::numeric_limits<std::int16_t>::min(),
     std::numeric_limits<std::int16_t>::max()},
    {typeMidi, sequenceTempo, "tempo", 0, kMostTempo},
    {typeToneBank, kToneBankType, "bank type", 0, 1},
}};

/// Returns the words that the asset uses. A wave that doesn't loop has no loop points.
std::uint32_t usedWords(const tavrel_asset& asset) {
  constexpr std::uint32_t kLoopPoints = 1U << waveLoopStart | 1U << waveLoopEnd;
  const bool hasNoLoop = asset.type == typeWave && asset.parameters[waveLoop] == 0;
  return usedParameters(asset.type) & ~(hasNoLoop ? kLoopPoints : 0U);
}

void findOutOfRange(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    const tavrel_asset& asset = subject.file().assets[id];
    for (const Range& range : kRanges) {
      const std::int32_t value = asset.parameters[range.parameter];
      if (asset.type == range.type && (value < range.least || value > range.most)) {
        findings.add(id, fmt::format("its {} is {}, not from {} to {}", range.meaning, value,
                                     range.least, range.most));
      }
    }
  }
}

void findUnused(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    const tavrel_asset& asset = subject.file().assets[id];
    for (std::uint32_t word = 0; word < std::size(asset.parameters); ++word) {
      if ((usedWords(asset) >> word & 1U) == 0 && asset.parameters[word] != 0) {
        findings.add(id, fmt::format("its parameter {} has no meaning and is {}, not 0", word,
                                     asset.parameters[word]));
      }
    }
  }
}

constexpr std::array<Check, 2> kRecordChecks{{
    {"parameter", "all parameters are in range", findOutOfRange},
    {"unused-parameter", "parameters without a meaning are 0", findUnused},
}};

}  // namespace

std::span<const Check> recordChecks() { return kRecordChecks; }

}  // namespace tavrel::kit
