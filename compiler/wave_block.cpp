// The block of a digital audio sample: reads a WAV or AIFF file, and turns its samples into the
// form that the bank holds: signed 8-bit, signed little-endian 16-bit, or 4-bit ADPCM. Both readers
// deliver samples as a WAV file has them, so 8-bit samples become signed here.
// The file is loaded and examined before any option is read.
#include <algorithm>
#include <array>
#include <utility>

#include "compiler/asset_block.h"
#include "compiler/bank_script.h"
#include "foundation/console.h"
#include "foundation/text_utilities.h"
#include "samples/adpcm_encoder.h"
#include "samples/aiff_file.h"
#include "samples/sound_convert.h"
#include "samples/wave_file.h"

namespace tavrel {

namespace {

constexpr std::size_t kSampleRate = 0;
constexpr std::size_t kLoop = 1;
constexpr std::size_t kBitsPerSample = 2;
constexpr std::size_t kRandomPitchAmount = 3;
constexpr std::size_t kLoopStart = 4;
constexpr std::size_t kLoopEnd = 5;

constexpr std::array<NumberOption, 2> kWaveOptions{{
    {"RandomPitchAmount", kRandomPitchAmount},
    {"SampleRate", kSampleRate},
}};

/// A sample as its reader hands it over; the bytes are the reader's.
struct Sample {
  std::uint8_t* bytes = nullptr;
  std::uint32_t size = 0;
  std::uint16_t bits = 0;
  std::uint32_t loopStart = 0;
  std::uint32_t loopEnd = 0;
};

struct Switches {
  std::uint8_t loop = 0;
  std::uint8_t adpcm = 0;
};

bool fileFailure(const char* fileName, const char* reason) {
  printLine(stderr, "ERROR: File: ", fileName, reason);
  return false;
}

template <typename Reader>
bool loadSample(Reader& reader, const AssetBlock& block, Sample& sample) {
  if (!reader.load()) {
    return fileFailure(block.fullFileName(), " not found.");
  }
  if (!reader.getDataSize(sample.size)) {
    return false;
  }
  if (sample.size == 0) {
    return fileFailure(block.fullFileName(), " has a 0 size wave data section.");
  }
  sample.bytes = reader.getSampleData();
  return reader.getBitsPerSample(sample.bits);
}

/// The loop of an AIFF file is its sustain loop, if it has one. A damaged one fails the block even
/// if the script doesn't ask for a loop.
bool findLoop(AiffFile& reader, AssetBlock& block, Sample& sample) {
  std::uint32_t mode = 0;
  return reader.getSustainLoopMode() == 0 ||
         reader.getLoop(1, mode, sample.loopStart, sample.loopEnd) ||
         fileFailure(block.source().token.data(), " has corrupt loop information.");
}

/// A WAV file loops as a whole.
bool findLoop(WaveFile& /*reader*/, AssetBlock& /*block*/, Sample& sample) {
  switch (sample.bits) {
    case 4:
      sample.loopEnd = sample.size * 2;
      break;
    case 8:
      sample.loopEnd = sample.size;
      break;
    case 16:
      sample.loopEnd = sample.size / 2;
      break;
    default:
      break;
  }
  return true;
}

bool readOption(AssetBlock& block, Switches& switches) {
  TokenFile& source = block.source();
  if (source.isToken("Loop")) {
    return source.readFlag(switches.loop);
  }
  if (source.isToken("Adpcm")) {
    return source.readFlag(switches.adpcm);
  }
  return block.readNumberOption(kWaveOptions);
}

/// Whether the sample gets compressed. A loop never is: asking for both is told and passed over.
bool settleCompression(AssetBlock& block, const Sample& sample, const Switches& switches) {
  if (switches.adpcm == 0) {
    return false;
  }
  if (switches.loop != 0) {
    printLine(stderr);
    printLine(stderr, "WARNING: ADPCM not allowed on loops, ", textOrEmpty(block.fileName().name),
              " not compressed.");
    printLine(stderr);
    return false;
  }
  return sample.bits == 16;
}

/// Both readers hold 16-bit samples in the machine's order and at an even address, so they can be
/// taken as numbers where they stand.
bool compress(AssetBlock& block, const Sample& sample) {
  AdpcmEncoder encoder;
  block.entry().parameter[kBitsPerSample] = 4;
  return encoder.encode(reinterpret_cast<const std::int16_t*>(sample.bytes), sample.size) &&
         block.takePayload(std::move(encoder.output), encoder.outputSize, Padding::toMultipleOf4);
}

/// A WAV file's samples are a block of their own, and change hands.
ByteBlock takeSamples(WaveFile& reader, const Sample& /*sample*/) { return reader.takeSamples(); }

/// Those of an AIFF file lie among its other chunks.
ByteBlock takeSamples(AiffFile& /*reader*/, const Sample& sample) {
  ByteBlock copy = newBytes(roundUp(sample.size, 4));
  if (copy) {
    std::copy_n(sample.bytes, sample.size, copy.get());
  }
  return copy;
}

template <typename Reader>
bool keepSamples(AssetBlock& block, Reader& reader, const Sample& sample) {
  block.entry().parameter[kBitsPerSample] = sample.bits;
  if (sample.bits == 8) {
    std::transform(sample.bytes, sample.bytes + sample.size, sample.bytes, SoundConvert::flipSign);
  }
  return block.takePayload(takeSamples(reader, sample), sample.size, Padding::toMultipleOf4);
}

void noteLoop(AssetBlock& block, const Sample& sample) {
  block.entry().parameter[kLoop] = 1;
  block.entry().parameter[kLoopStart] = static_cast<std::int32_t>(sample.loopStart);
  block.entry().parameter[kLoopEnd] = static_cast<std::int32_t>(sample.loopEnd);
}

template <typename Reader>
bool parseSample(AssetBlock& block) {
  Reader reader(block.fullFileName());
  Sample sample;
  Switches switches;
  if (!loadSample(reader, block, sample) || !findLoop(reader, block, sample) ||
      !block.readOptions([&block, &switches] { return readOption(block, switches); })) {
    return false;
  }
  const bool stored = settleCompression(block, sample, switches)
                          ? compress(block, sample)
                          : keepSamples(block, reader, sample);
  if (stored && switches.loop != 0) {
    noteLoop(block, sample);
  }
  return stored && block.store(typeWave, kindWave);
}

}  // namespace

bool BankScript::parseWaveFile(TokenFile& source) {
  AssetBlock block(*this, source);
  if (!block.open()) {
    return false;
  }
  const char* extension = assetFileName.getExtensionOnly();
  if (extension == nullptr) {
    return false;
  }
  if (equalsIgnoringCase(extension, "aif")) {
    block.announce("Reading AIFF File: ");
    return parseSample<AiffFile>(block);
  }
  block.announce("Reading Wave File: ");
  return parseSample<WaveFile>(block);
}

}  // namespace tavrel
