#include "kit/extract/script_source.h"

#include <algorithm>
#include <new>

#include "compiler/wave_rules.h"
#include "kit/bank/asset_facts.h"
#include "kit/extract/script_block.h"
#include "kit/frame/captured_console.h"
#include "midi/midi_asset_file.h"

namespace tavrel::kit {

namespace {

/// Returns true if the tool takes the asset's bytes for a sequence with a tempo.
bool isSequence(BankFile& bank, const tavrel_asset& asset) {
  const CapturedConsole silence;
  MidiAssetFile file("", 0);
  std::uint32_t tempo = 0;
  const bool isAccepted =
      file.useImage(bank.blob(asset), asset.size) && file.judge() && file.firstTempo(tempo);
  requireMemory(file);
  return isAccepted;
}

/// Returns true if a wave has the loop that the tool makes of a WAV file: all of the sound.
bool loopsAsWav(const WaveFacts& wave, std::uint32_t size) {
  return wave.loopStart == 0 &&
         wave.loopEnd == waveSampleCount(size, static_cast<std::uint16_t>(wave.bits));
}

WaveFileFormat wavFormat(const WaveFacts& wave, std::uint16_t bits, std::uint16_t channels) {
  WaveFileFormat format{.channels = channels, .bitsPerSample = bits};
  if (wave.loops && wave.loopEnd >= channels) {
    format.loop = WaveLoop{.start = 0, .last = wave.loopEnd / channels - 1};
  }
  return format;
}

/// An AIFF file has one channel: the tool reads only the first half of two.
AiffFileFormat aiffFormat(const WaveFacts& wave, std::uint16_t bits) {
  AiffFileFormat format{.bitsPerSample = bits};
  if (wave.loops && (wave.loopStart != 0 || wave.loopEnd != 0)) {
    format.loop = AiffMarkedLoop{.start = wave.loopStart, .end = wave.loopEnd};
  }
  return format;
}

std::optional<WaveExport> waveFile(const tavrel_asset& asset, bool prefersAiff,
                                   std::uint16_t channels) {
  const WaveFacts wave = waveFacts(asset);
  const bool isDecoded = isCompressedWave(asset);
  if (asset.size == 0 && !isDecoded) {
    return std::nullopt;
  }
  // Of a width that no file has, packing the file shows the difference.
  const auto bits = isDecoded ? kDecodedBits : static_cast<std::uint16_t>(wave.bits);
  WaveExport description{.isDecoded = isDecoded, .sampleBytes = asset.size};
  if (isDecoded) {
    // The tool refuses an empty file, and compresses a single sample to nothing.
    description.sampleBytes = asset.size == 0 ? 2 : std::uint64_t{4} * asset.size;
  }
  const bool fitsAiff = bits == 8 || (bits == 16 && description.sampleBytes % 2 == 0);
  const bool needsAiff = wave.loops && !loopsAsWav(wave, asset.size);
  const std::uint32_t rate = exportedRate(asset, description.changes);
  if (fitsAiff && (prefersAiff || needsAiff)) {
    description.format = aiffFormat(wave, bits);
    if (channels > 1) {
      description.changes.emplace_back("an AIFF file for tavrel has one channel");
    }
  } else {
    description.format = wavFormat(wave, bits, channels);
  }
  std::visit([rate](auto& format) { format.framesPerSecond = rate; }, description.format);
  return description;
}

}  // namespace

std::optional<ScriptSource> scriptSourceOf(BankFile& bank, const tavrel_asset& asset,
                                           bool prefersAiff, std::uint16_t channels) {
  if (asset.type == TAVREL_WAVE) {
    auto wave = waveFile(asset, prefersAiff, channels);
    return wave ? std::optional(ScriptSource{std::move(wave)}) : std::nullopt;
  }
  if (asset.type == TAVREL_SEQUENCE && !isSequence(bank, asset)) {
    return std::nullopt;
  }
  return ScriptSource{};
}

FileCache::Entry fileContent(const AssetSource& asset, const ScriptSource& source) {
  const std::uint64_t size = source.wave ? fileSize(*source.wave) : asset.asset.size;
  FileCache::Entry file{.bytes = newBytes(size), .size = static_cast<std::size_t>(size)};
  if (!file.bytes) {
    throw std::bad_alloc();
  }
  std::uint8_t* end = file.bytes.get();
  const ByteSink append = [&end](const std::uint8_t* bytes, std::uint64_t count) {
    end = std::copy_n(bytes, count, end);
  };
  if (source.wave) {
    writeWave(asset, *source.wave, append);
  } else {
    writeBlob(asset, append);
  }
  return file;
}

}  // namespace tavrel::kit
