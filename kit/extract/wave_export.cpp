#include "kit/extract/wave_export.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "foundation/byte_order.h"
#include "kit/bank/asset_facts.h"
#include "kit/frame/contains.h"
#include "samples/sound_convert.h"

namespace tavrel::kit {

namespace {

constexpr std::uint32_t kUsualRate = 22050;
constexpr std::uint32_t kPieceBytes = 1U << 16U;

/// Calls `use` with pieces of the first `size` bytes of an asset. All but the last have an even
/// number of bytes.
template <typename Use>
void forEachPiece(const AssetSource& source, std::uint32_t size, Use use) {
  for (std::uint32_t position = 0; position < size;) {
    const std::uint32_t length = std::min(kPieceBytes, size - position);
    const ByteBlock piece = source.bank.read(source.asset.offset + position, length);
    use(piece.get(), length);
    position += length;
    source.progress.advance(length);
  }
}

/// Decodes a stream of ADPCM piece by piece.
class Decoder {
 public:
  Decoder() : samples_(std::size_t{2} * kPieceBytes), bytes_(2 * samples_.size()) {
    tavrel_adpcm_start(&state_);
  }

  /// Returns four bytes of samples, little-endian, for each of `length` bytes of codes. Valid until
  /// the next call.
  std::uint8_t* decode(const std::uint8_t* codes, std::uint32_t length) {
    tavrel_adpcm_decode(&state_, codes, length, samples_.data());
    for (std::size_t i = 0; i < std::size_t{2} * length; ++i) {
      storeLittle16(bytes_.data() + 2 * i, static_cast<std::uint16_t>(samples_[i]));
    }
    return bytes_.data();
  }

 private:
  tavrel_adpcm state_{};
  std::vector<std::int16_t> samples_;
  std::vector<std::uint8_t> bytes_;
};

std::uint16_t bitsOf(const WaveExport& description) {
  return std::visit([](const auto& format) { return format.bitsPerSample; }, description.format);
}

/// Converts samples from the bank's form to that of the file.
void convert(std::uint8_t* samples, std::uint32_t length, const WaveExport& description) {
  const bool isAiff = std::holds_alternative<AiffFileFormat>(description.format);
  const std::uint16_t bits = bitsOf(description);
  if (isAiff && bits == 16) {
    SoundConvert::swapBytes(samples, samples, length);
  } else if (!isAiff && bits == 8) {
    std::transform(samples, samples + length, samples, SoundConvert::flipSign);
  }
}

void writeAll(const std::vector<std::uint8_t>& bytes, const ByteSink& file) {
  file(bytes.data(), bytes.size());
}

void writeDecoded(const AssetSource& source, const WaveExport& description, const ByteSink& file) {
  Decoder decoder;
  forEachPiece(source, source.asset.size, [&](const std::uint8_t* codes, std::uint32_t length) {
    std::uint8_t* samples = decoder.decode(codes, length);
    convert(samples, 4 * length, description);
    file(samples, std::uint64_t{4} * length);
  });
  const std::uint64_t padding = description.sampleBytes - std::uint64_t{4} * source.asset.size;
  writeAll(std::vector<std::uint8_t>(static_cast<std::size_t>(padding)), file);
}

void writeSamples(const AssetSource& source, const WaveExport& description, const ByteSink& file) {
  const auto size = static_cast<std::uint32_t>(description.sampleBytes);
  forEachPiece(source, size, [&](std::uint8_t* samples, std::uint32_t length) {
    convert(samples, length, description);
    file(samples, length);
  });
}

/// The bank counts the samples of all channels, the file counts frames.
void describeLoop(const WaveFacts& wave, std::uint64_t samples, WaveFileFormat& format,
                  std::vector<std::string>& changes) {
  const std::uint32_t start = wave.loopStart / format.channels;
  const std::uint32_t end = wave.loopEnd / format.channels;
  if (wave.loopEnd <= samples && start < end) {
    format.loop = WaveLoop{.start = start, .last = end - 1};
  } else {
    changes.push_back(fmt::format("the loop from {} to {} isn't inside the sound and is left out",
                                  wave.loopStart, wave.loopEnd));
  }
}

}  // namespace

bool hasWaveFile(const tavrel_asset& wave) {
  constexpr std::array<std::int32_t, 5> kWidths{kAdpcmBits, 8, 16, 24, 32};
  return contains(kWidths, waveFacts(wave).bits);
}

std::uint32_t exportedRate(const tavrel_asset& wave, std::vector<std::string>& changes) {
  const std::int32_t rate = waveFacts(wave).sampleRate;
  if (rate <= 0) {
    changes.push_back(fmt::format("a sample rate of {} becomes {} Hz", rate, kUsualRate));
    return kUsualRate;
  }
  return static_cast<std::uint32_t>(rate);
}

WaveExport describeExport(const tavrel_asset& wave, std::uint16_t channels) {
  const WaveFacts facts = waveFacts(wave);
  WaveExport description{.isDecoded = facts.bits == kAdpcmBits};
  WaveFileFormat format{.channels = channels,
                        .bitsPerSample = description.isDecoded
                                             ? kDecodedBits
                                             : static_cast<std::uint16_t>(facts.bits)};
  const std::uint32_t sampleSize = format.bitsPerSample / 8U;
  description.sampleBytes =
      description.isDecoded ? std::uint64_t{4} * wave.size : wave.size - wave.size % sampleSize;
  format.framesPerSecond = exportedRate(wave, description.changes);
  if (facts.loops) {
    describeLoop(facts, description.sampleBytes / sampleSize, format, description.changes);
  }
  description.format = format;
  return description;
}

std::uint64_t fileSize(const WaveExport& description) {
  const std::uint64_t samples = description.sampleBytes;
  const auto* wav = std::get_if<WaveFileFormat>(&description.format);
  return wav != nullptr
             ? kChunkHeaderBytes + waveFormSize(*wav, samples)
             : aiffHeaderSize(std::get<AiffFileFormat>(description.format)) + samples + samples % 2;
}

bool fitsItsFormat(const WaveExport& description) {
  const auto* wav = std::get_if<WaveFileFormat>(&description.format);
  return wav != nullptr
             ? fitsWaveFile(*wav, description.sampleBytes)
             : fitsAiffFile(std::get<AiffFileFormat>(description.format), description.sampleBytes);
}

void writeBlob(const AssetSource& source, const ByteSink& file) {
  forEachPiece(source, source.asset.size, file);
}

void writeWave(const AssetSource& source, const WaveExport& description, const ByteSink& file) {
  const auto size = static_cast<std::uint32_t>(description.sampleBytes);
  const auto* wav = std::get_if<WaveFileFormat>(&description.format);
  if (wav != nullptr) {
    const auto header = waveFileHeader(*wav, size);
    file(header.data(), header.size());
  } else {
    writeAll(aiffFileHeader(std::get<AiffFileFormat>(description.format), size), file);
  }
  if (description.isDecoded) {
    writeDecoded(source, description, file);
  } else {
    writeSamples(source, description, file);
  }
  writeAll(wav != nullptr ? waveFileTail(*wav, size) : aiffFileTail(size), file);
}

}  // namespace tavrel::kit
