// Waves of a bank as WAV files. The bank's samples of 8 bits are signed, those of a WAV file
// unsigned; ADPCM becomes samples of 16 bits.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kit/bank/bank_file.h"
#include "kit/frame/output_file.h"
#include "kit/frame/progress.h"
#include "samples/wave_writer.h"

namespace tavrel::kit {

constexpr std::uint32_t kMostChannels = 1024;  // as many as readers of WAV files take

/// The WAV file of a wave.
struct WaveExport {
  WaveFileFormat format;
  std::uint64_t sampleBytes = 0;     ///< of the file
  std::vector<std::string> changes;  ///< what it states differently from the bank, one line each
};

/// Returns true if a WAV file can hold samples of the wave's width.
bool hasWaveFile(const tavrel_asset& wave);

/// Describes the file of a wave that has one. Its samples are those of `channels` interleaved
/// channels. Its loop is left out if it isn't inside the sound.
WaveExport describeExport(const tavrel_asset& wave, std::uint16_t channels);

/// An asset whose bytes are to be written.
struct AssetSource {
  BankFile& bank;
  const tavrel_asset& asset;
  Progress& progress;  ///< counts the asset's bytes
};

/// Writes the asset's bytes as they are, in pieces.
void writeBlob(const AssetSource& source, OutputFile& file);

/// Writes the file of a wave, in pieces. It must fit a WAV file.
void writeWave(const AssetSource& source, const WaveExport& description, OutputFile& file);

}  // namespace tavrel::kit
