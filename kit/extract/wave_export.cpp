#include "kit/extract/wave_export.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "foundation/byte_order.h"
#include "kit/bank/asset_facts.h"
#include "samples/sound_convert.h"

namespace tavrel::kit {

namespace {

constexpr std::int32_t kAdpcmBits = 4;
constexpr std::int32_t kDecodedBits = 16;
constexpr std::uint32_t kUsualRate = 22050;
constexpr std::uint32_t kPieceBytes = 1U << 16U;

/// Calls `use` with pieces of the first `size` bytes of an asset.
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

void writePlain(const AssetSource& source, std::uint32_t size, OutputFile& file) {
  forEachPiece(source, size, [&file](const std::uint8_t* bytes, std::uint32_t length) {
    file.write(bytes, length);
  });
}

void writeUnsigned(const AssetSource& source, std::uint32_t size, OutputFile& file) {
  forEachPiece(source, size, [&file](std::uint8_t* samples, std::uint32_t length) {
    std::transform(samples, samples + length, samples, SoundConvert::flipSign);
    file.write(samples, length);
  });
}

void writeDecoded(const AssetSource& source, OutputFile& file) {
  std::vector<std::int16_t> samples(std::size_t{2} * kPieceBytes);
  std::vector<std::uint8_t> bytes(2 * samples.size());
  tavrel_adpcm state{};
  tavrel_adpcm_start(&state);
  forEachPiece(source, source.asset.size, [&](const std::uint8_t* codes, std::uint32_t length) {
    tavrel_adpcm_decode(&state, codes, length, samples.data());
    for (std::size_t i = 0; i < std::size_t{2} * length; ++i) {
      storeLittle16(bytes.data() + 2 * i, static_cast<std::uint16_t>(samples[i]));
    }
    file.write(bytes.data(), std::uint64_t{4} * length);
  });
}

void describeRate(const WaveFacts& wave, WaveExport& description) {
  description.format.framesPerSecond = static_cast<std::uint32_t>(wave.sampleRate);
  if (wave.sampleRate <= 0) {
    description.format.framesPerSecond = kUsualRate;
    description.changes.push_back(
        fmt::format("a sample rate of {} becomes {} Hz", wave.sampleRate, kUsualRate));
  }
}

/// The bank counts the samples of all channels, the file counts frames.
void describeLoop(const WaveFacts& wave, WaveExport& description) {
  const WaveFileFormat& format = description.format;
  const std::uint64_t samples = description.sampleBytes / (format.bitsPerSample / 8U);
  const std::uint32_t start = wave.loopStart / format.channels;
  const std::uint32_t end = wave.loopEnd / format.channels;
  if (wave.loopEnd <= samples && start < end) {
    description.format.loop = WaveLoop{.start = start, .last = end - 1};
  } else {
    description.changes.push_back(
        fmt::format("the loop from {} to {} isn't inside the sound and is left out", wave.loopStart,
                    wave.loopEnd));
  }
}

}  // namespace

bool hasWaveFile(const tavrel_asset& wave) {
  constexpr std::array<std::int32_t, 5> kWidths{kAdpcmBits, 8, 16, 24, 32};
  return std::find(kWidths.begin(), kWidths.end(), waveFacts(wave).bits) != kWidths.end();
}

WaveExport describeExport(const tavrel_asset& wave, std::uint16_t channels) {
  const WaveFacts facts = waveFacts(wave);
  const bool isCompressed = facts.bits == kAdpcmBits;
  const auto bits = static_cast<std::uint16_t>(isCompressed ? kDecodedBits : facts.bits);
  WaveExport description;
  description.format.channels = channels;
  description.format.bitsPerSample = bits;
  description.sampleBytes =
      isCompressed ? std::uint64_t{4} * wave.size : wave.size - wave.size % (bits / 8U);
  describeRate(facts, description);
  if (facts.loops) {
    describeLoop(facts, description);
  }
  return description;
}

void writeBlob(const AssetSource& source, OutputFile& file) {
  writePlain(source, source.asset.size, file);
}

void writeWave(const AssetSource& source, const WaveExport& description, OutputFile& file) {
  const auto size = static_cast<std::uint32_t>(description.sampleBytes);
  const auto header = waveFileHeader(description.format, size);
  file.write(header.data(), header.size());
  if (waveFacts(source.asset).bits == kAdpcmBits) {
    writeDecoded(source, file);
  } else if (description.format.bitsPerSample == 8) {
    writeUnsigned(source, size, file);
  } else {
    writePlain(source, size, file);
  }
  const std::vector<std::uint8_t> tail = waveFileTail(description.format, size);
  file.write(tail.data(), tail.size());
}

}  // namespace tavrel::kit
