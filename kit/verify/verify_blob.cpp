// Checks of blobs against their records.
#include <fmt/format.h>

#include <array>
#include <limits>

#include "compiler/bank_format.h"
#include "kit/bank/asset_facts.h"
#include "kit/verify/verify.h"

namespace tavrel::kit {

namespace {

SequenceFacts readFacts(BankFile& bank, const tavrel_asset& asset) {
  SequenceFacts facts;
  MidiFile file;
  SequenceSummary summary;
  facts.isWhole = readSequence(bank, asset, file, summary);
  facts.division = static_cast<std::int16_t>(file.ppqn);
  file.runningStatus = 0;  // as before the first event
  std::uint32_t tempo = 0;
  if (facts.isWhole && file.firstTempo(tempo)) {
    facts.tempo = tempo;
  }
  requireMemory(file);
  return facts;
}

void findBadAdpcm(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    const tavrel_asset& asset = subject.file().assets[id];
    if (asset.type == typeWave && asset.parameters[waveBitsPerSample] == kAdpcmBits &&
        asset.size % kAdpcmUnit != 0) {
      findings.add(
          id, fmt::format("its {} bytes of ADPCM are no multiple of {}", asset.size, kAdpcmUnit));
    }
  }
}

void findBrokenSequences(Subject& subject, BankFindings& findings) {
  for (const auto& [id, sequence] : subject.sequences) {
    if (!sequence.isWhole) {
      findings.add(id, "its sequence can't be read up to an End of Track");
    }
  }
}

void findWrongDivisions(Subject& subject, BankFindings& findings) {
  for (const auto& [id, sequence] : subject.sequences) {
    const std::int32_t division = subject.file().assets[id].parameters[sequenceDivision];
    if (sequence.isWhole && sequence.division != division) {
      findings.add(id, fmt::format("its record has the division {}, its sequence {}", division,
                                   sequence.division));
    }
  }
}

void findWrongTempos(Subject& subject, BankFindings& findings) {
  for (const auto& [id, sequence] : subject.sequences) {
    const std::int32_t tempo = subject.file().assets[id].parameters[sequenceTempo];
    if (sequence.isWhole && !sequence.tempo) {
      findings.add(id, fmt::format("its record has the tempo {}, its sequence none", tempo));
    } else if (sequence.isWhole && *sequence.tempo != static_cast<std::uint32_t>(tempo)) {
      findings.add(
          id, fmt::format("its record has the tempo {}, its sequence {}", tempo, *sequence.tempo));
    }
  }
}

/// Returns how many samples of all channels the wave can have at most. Widths that aren't whole
/// bytes may take more bits than they say. Any number is possible if the width isn't known.
std::uint64_t mostSamples(const tavrel_asset& asset, std::int32_t bits) {
  constexpr std::uint64_t kBitsPerByte = 8;
  return bits <= 0 ? std::numeric_limits<std::uint32_t>::max()
                   : asset.size * kBitsPerByte / static_cast<std::uint32_t>(bits);
}

void findBadLoops(Subject& subject, BankFindings& findings) {
  for (std::uint32_t id = 0; id < subject.count(); ++id) {
    const tavrel_asset& asset = subject.file().assets[id];
    if (asset.type != typeWave) {
      continue;
    }
    const WaveFacts wave = waveFacts(asset);
    const std::uint64_t samples = mostSamples(asset, wave.bits);
    if (wave.loops && wave.loopStart >= wave.loopEnd) {
      findings.add(
          id, fmt::format("its loop starts at {} and ends at {}", wave.loopStart, wave.loopEnd));
    } else if (wave.loops && wave.loopEnd > samples) {
      findings.add(id,
                   fmt::format("its loop ends at {}, after its {} samples", wave.loopEnd, samples));
    }
  }
}

constexpr std::array<Check, 5> kBlobChecks{{
    {"adpcm-length", "all ADPCM has a length that is a multiple of 4", findBadAdpcm},
    {"sequence", "all sequences can be read up to an End of Track", findBrokenSequences},
    {"division", "all records have the division of their sequence", findWrongDivisions},
    {"tempo", "all records have the first tempo of their sequence", findWrongTempos},
    {"loop", "all loops lie inside their wave", findBadLoops},
}};

}  // namespace

std::map<std::uint32_t, SequenceFacts> readSequences(BankFile& bank) {
  std::map<std::uint32_t, SequenceFacts> sequences;
  for (std::uint32_t id = 0; id < bank.assets.size(); ++id) {
    if (bank.assets[id].type == typeMidi) {
      sequences[id] = readFacts(bank, bank.assets[id]);
    }
  }
  return sequences;
}

std::span<const Check> blobChecks() { return kBlobChecks; }

}  // namespace tavrel::kit
