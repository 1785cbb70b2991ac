// Block parser for digital audio samples. Reads a WAV or AIFF file and converts its samples to the
// form that the bank holds: signed 8-bit, signed little-endian 16-bit, or 4-bit ADPCM. The file is
// loaded and examined before any option is read.
#include <algorithm>
#include <utility>

#include "compiler/asset_block.h"
#include "compiler/bank_script.h"
#include "compiler/wave_rules.h"
#include "foundation/console.h"
#include "samples/aiff_file.h"
#include "samples/sound_convert.h"
#include "samples/wave_file.h"

namespace tavrel {

namespace {

/// A sound as its reader delivers it: 8-bit samples unsigned, 16-bit samples little-endian.
struct Sound {
  ByteBlock block;              ///< holds the samples
  std::size_t offset = 0;       ///< of the samples in `block`; if 0, there is room for the padding
  std::uint32_t size = 0;       ///< of the samples, in bytes
  std::uint16_t bits = 0;       ///< per sample
  std::uint32_t loopStart = 0;  ///< in samples
  std::uint32_t loopEnd = 0;
};

bool failFile(const char* fileName, const char* reason) {
  printLine(stderr, "ERROR: File: ", fileName, reason);
  return false;
}

/// Loads the file and asks for the size and width of its samples. An empty sound is a failure.
template <typename Reader>
bool loadFile(Reader& reader, const AssetBlock& block, Sound& sound) {
  if (!reader.load()) {
    return failFile(block.fullFileName(), " not found.");
  }
  if (!reader.getDataSize(sound.size)) {
    return false;
  }
  if (sound.size == 0) {
    return failFile(block.fullFileName(), " has a 0 size wave data section.");
  }
  return reader.getBitsPerSample(sound.bits);
}

bool readWav(const AssetBlock& block, Sound& sound) {
  WaveFile reader(block.fullFileName());
  if (!loadFile(reader, block, sound)) {
    return false;
  }
  sound.block = reader.takeSamples();
  sound.loopEnd = waveSampleCount(sound.size, sound.bits);
  return true;
}

/// The loop of an AIFF file is its sustain loop, if it has one. A damaged one fails the block even
/// if the script doesn't ask for a loop.
bool readAiff(const AssetBlock& block, Sound& sound) {
  AiffFile reader(block.fullFileName());
  if (!loadFile(reader, block, sound)) {
    return false;
  }
  std::uint32_t mode = 0;
  if (reader.getSustainLoopMode() != 0 &&
      !reader.getLoop(1, mode, sound.loopStart, sound.loopEnd)) {
    return failFile(block.source().token.data(), " has corrupt loop information.");
  }
  const std::uint8_t* samples = reader.getSampleData();
  sound.block = reader.takeImage();
  sound.offset = static_cast<std::size_t>(samples - sound.block.get());
  return true;
}

void warnOfLoop(AssetBlock& block) {
  printLine(stderr);
  printLine(stderr, "WARNING: ADPCM not allowed on loops, ", textOrEmpty(block.fileName().name),
            " not compressed.");
  printLine(stderr);
}

/// Returns the samples in a block of their own. The samples of a WAV file are one already.
ByteBlock takeSamples(Sound& sound) {
  if (sound.offset == 0) {
    return std::move(sound.block);
  }
  ByteBlock copy = newBytes(roundUp(sound.size, kBlobAlignment));
  if (copy) {
    std::copy_n(sound.block.get() + sound.offset, sound.size, copy.get());
  }
  return copy;
}

/// Stores the asset. The batch writes its payload later.
bool storeCompressed(AssetBlock& block, Sound& sound, AdpcmBatch& batch) {
  block.data().compressed = true;
  block.entry().parameter[waveBitsPerSample] = 4;
  // Samples that wait must not keep the rest of their file in memory.
  ByteBlock samples = takeSamples(sound);
  if (!samples || !block.makePayload(adpcmStreamSize(sound.size))) {
    return false;
  }
  std::uint8_t* stream = block.payload();
  if (!block.store()) {
    return false;
  }
  batch.add(std::move(samples), sound.size, stream);
  return true;
}

bool storeUncompressed(AssetBlock& block, Sound& sound) {
  block.entry().parameter[waveBitsPerSample] = sound.bits;
  if (!block.takePayload(takeSamples(sound), sound.size)) {
    return false;
  }
  if (sound.bits == 8) {
    std::transform(block.payload(), block.payload() + sound.size, block.payload(),
                   SoundConvert::flipSign);
  }
  return block.store();
}

bool storeSound(AssetBlock& block, Sound& sound, AdpcmBatch& batch) {
  const bool loops = block.entry().parameter[waveLoop] != 0;
  if (loops) {
    block.entry().parameter[waveLoopStart] = static_cast<std::int32_t>(sound.loopStart);
    block.entry().parameter[waveLoopEnd] = static_cast<std::int32_t>(sound.loopEnd);
  }
  if (loops && block.wantsAdpcm()) {
    warnOfLoop(block);
  }
  return isCompressed(sound.bits, loops, block.wantsAdpcm()) ? storeCompressed(block, sound, batch)
                                                             : storeUncompressed(block, sound);
}

}  // namespace

bool BankScript::parseWave(TokenFile& source) {
  AssetBlock block(*this, source, statementOf(typeWave));
  if (!block.open()) {
    return false;
  }
  const char* extension = assetFileName.getExtensionOnly();
  if (extension == nullptr) {
    return false;
  }
  const bool isAiff = isAiffExtension(extension);
  block.announce(isAiff ? kReadingAiff : statementOf(typeWave).reading);
  Sound sound;
  return (isAiff ? readAiff(block, sound) : readWav(block, sound)) && block.readOptions() &&
         storeSound(block, sound, batch_);
}

bool BankScript::parseWaveFile(TokenFile& source) {
  const bool stored = parseWave(source);
  batch_.finish();
  return stored;
}

}  // namespace tavrel
