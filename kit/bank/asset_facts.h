// What can be said of an asset from its record, and of a sequence from its blob. Values that can't
// be known are absent.
#pragma once

#include <cstdint>
#include <optional>

#include "kit/bank/bank_file.h"
#include "midi/sequence_summary.h"

namespace tavrel::kit {

constexpr std::int32_t kAdpcmBits = 4;   ///< of a sample
constexpr std::uint32_t kAdpcmUnit = 4;  ///< bytes: 8 samples

struct WaveFacts {
  std::int32_t sampleRate = 0;  ///< in hertz
  std::int32_t bits = 0;
  const char* encoding = "raw";            ///< "adpcm", "pcm" or "raw"
  std::optional<std::uint32_t> samples{};  ///< of all channels; absent for "raw"
  std::optional<double> seconds{};         ///< for one channel
  std::int32_t randomPitchAmount = 0;
  bool loops = false;
  std::uint32_t loopStart = 0;  ///< in samples
  std::uint32_t loopEnd = 0;
};

/// `asset` must be a wave.
WaveFacts waveFacts(const tavrel_asset& asset);

/// Returns "drum" or "melodic" for a tone bank, or the empty string for another value.
const char* toneBankType(const tavrel_asset& asset);

/// Returns beats per minute for a tempo in microseconds per quarter note; nothing for 0.
std::optional<double> beatsPerMinute(std::int32_t microsecondsPerQuarter);

/// Loads the sequence of `asset` from the bank into `file` and walks through it. Returns false,
/// with `summary` unchanged, if it breaks off. Throws std::bad_alloc if memory runs out.
bool readSequence(BankFile& bank, const tavrel_asset& asset, MidiFile& file,
                  SequenceSummary& summary);

/// Throws std::bad_alloc if memory ran out for the last event that was read from `file`.
void requireMemory(const MidiFile& file);

/// As `readSequence`, for the summary alone.
bool summarizeSequence(BankFile& bank, const tavrel_asset& asset, SequenceSummary& summary);

}  // namespace tavrel::kit
