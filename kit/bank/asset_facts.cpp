#include "kit/bank/asset_facts.h"

#include <array>
#include <new>

#include "compiler/bank_format.h"
#include "kit/frame/captured_console.h"
#include "midi/sequence_summary.h"

namespace tavrel::kit {

namespace {

const char* encodingName(std::int32_t bits) {
  switch (bits) {
    case 4:
      return "adpcm";
    case 8:
    case 16:
      return "pcm";
    default:
      return "raw";
  }
}

}  // namespace

WaveFacts waveFacts(const tavrel_asset& asset) {
  tavrel_wave wave{};
  tavrel_asset_wave(&asset, &wave);
  WaveFacts facts{.sampleRate = wave.sample_rate,
                  .bits = wave.bits,
                  .encoding = encodingName(wave.bits),
                  .randomPitchAmount = wave.random_pitch_amount,
                  .loops = wave.loops != 0,
                  .loopStart = wave.loop_start,
                  .loopEnd = wave.loop_end};
  if (wave.bits == 4 || wave.bits == 8 || wave.bits == 16) {
    facts.samples = wave.sample_count;
    if (wave.sample_rate > 0) {
      facts.seconds = static_cast<double>(wave.sample_count) / wave.sample_rate;
    }
  }
  return facts;
}

const char* toneBankType(const tavrel_asset& asset) {
  constexpr std::array<const char*, 2> kTypes{"drum", "melodic"};
  const auto value = static_cast<std::uint32_t>(asset.parameters[kToneBankType]);
  return value < kTypes.size() ? kTypes[value] : "";
}

std::optional<double> beatsPerMinute(std::int32_t microsecondsPerQuarter) {
  constexpr double kMicrosecondsPerMinute = 60e6;
  const auto tempo = static_cast<std::uint32_t>(microsecondsPerQuarter);
  return tempo == 0 ? std::nullopt : std::optional(kMicrosecondsPerMinute / tempo);
}

bool readSequence(BankFile& bank, const tavrel_asset& asset, MidiFile& file,
                  SequenceSummary& summary) {
  const CapturedConsole silence;
  const bool isWhole = file.useImage(bank.blob(asset), asset.size) && file.readHeaderChunk() &&
                       file.readTrackHeader() && summarize(file, summary);
  requireMemory(file);
  return isWhole;
}

void requireMemory(const MidiFile& file) {
  if (file.memoryRanOut) {
    throw std::bad_alloc();
  }
}

bool summarizeSequence(BankFile& bank, const tavrel_asset& asset, SequenceSummary& summary) {
  MidiFile file;
  return readSequence(bank, asset, file, summary);
}

}  // namespace tavrel::kit
