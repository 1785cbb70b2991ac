// Waves of a bank as WAV or AIFF files. Samples of 8 bits are signed in the bank and in an AIFF
// file, and unsigned in a WAV file. Samples of 16 bits are big-endian in an AIFF file. ADPCM
// becomes samples of 16 bits.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <variant>
#include <vector>

#include "kit/bank/bank_file.h"
#include "kit/frame/progress.h"
#include "samples/aiff_writer.h"
#include "samples/wave_writer.h"

namespace tavrel::kit {

constexpr std::uint32_t kMostChannels = 1024;  // as many as readers of WAV files take
constexpr std::uint16_t kDecodedBits = 16;

/// The file of a wave.
struct WaveExport {
  std::variant<WaveFileFormat, AiffFileFormat> format{};
  bool isDecoded = false;              ///< from ADPCM
  std::uint64_t sampleBytes = 0;       ///< of the file; decoded ones may be followed by zeros
  std::vector<std::string> changes{};  ///< what it states differently from the bank, one line each
};

/// Returns true if a WAV file can hold samples of the wave's width.
bool hasWaveFile(const tavrel_asset& wave);

/// Describes the WAV file of a wave that has one. Its samples are those of `channels` interleaved
/// channels. Its loop is left out if it isn't inside the sound.
WaveExport describeExport(const tavrel_asset& wave, std::uint16_t channels);

/// Returns the sample rate that a file of the wave states. Adds a line to `changes` if that isn't
/// the wave's.
std::uint32_t exportedRate(const tavrel_asset& wave, std::vector<std::string>& changes);

/// Returns the size of the whole file.
std::uint64_t fileSize(const WaveExport& description);

/// Returns true if the sizes of the file fit into their fields. Other files can't be written.
bool fitsItsFormat(const WaveExport& description);

/// An asset whose bytes are to be written.
struct AssetSource {
  BankFile& bank;
  const tavrel_asset& asset;
  Progress& progress;  ///< counts the asset's bytes
};

/// Takes the bytes of a file piece by piece.
using ByteSink = std::function<void(const std::uint8_t* bytes, std::uint64_t count)>;

/// Writes the asset's bytes as they are, in pieces.
void writeBlob(const AssetSource& source, const ByteSink& file);

/// Writes the file of a wave, in pieces. It must fit its format.
void writeWave(const AssetSource& source, const WaveExport& description, const ByteSink& file);

}  // namespace tavrel::kit
