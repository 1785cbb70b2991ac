// Fuzzes the writers of WAV and AIFF files: the readers must find in a file what was written.
//
// | offset | width | content |
// |---|---|---|
// | 0 | 2 | channels |
// | 2 | 4 | frames per second |
// | 6 | 1 | bits 0 and 1: bytes per sample, less one; bit 2: there is a loop |
// | 7 | 4 | first frame of the loop |
// | 11 | 4 | frame after the loop, or its last one |
// | 15 | | samples |
#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/byte_order.h"
#include "fuzz/hostile_file.h"
#include "fuzz/require.h"
#include "kit/check/wave_chunks.h"
#include "samples/aiff_file.h"
#include "samples/aiff_writer.h"
#include "samples/wave_file.h"
#include "samples/wave_writer.h"

namespace tavrel::fuzz {

namespace {

constexpr std::size_t kHeadBytes = 15;

struct WriterInput {
  std::uint16_t channels;
  std::uint32_t rate;
  std::uint16_t bits;
  bool hasLoop;
  std::uint32_t loopStart;
  std::uint32_t loopEnd;
  std::string_view samples;
};

WriterInput inputOf(const std::uint8_t* bytes, std::size_t size) {
  return {.channels = loadLittle16(bytes),
          .rate = loadLittle32(bytes + 2),
          .bits = static_cast<std::uint16_t>(8 * (bytes[6] % 4 + 1)),
          .hasLoop = bytes[6] / 4 % 2 != 0,
          .loopStart = loadLittle32(bytes + 7),
          .loopEnd = loadLittle32(bytes + 11),
          .samples = {reinterpret_cast<const char*>(bytes) + kHeadBytes, size - kHeadBytes}};
}

/// Returns the bytes of a file: head and tail are vectors or arrays of bytes.
template <typename Head, typename Tail>
std::vector<std::uint8_t> fileOf(const Head& head, std::string_view samples, const Tail& tail) {
  std::vector<std::uint8_t> file(head.begin(), head.end());
  file.insert(file.end(), samples.begin(), samples.end());
  file.insert(file.end(), tail.begin(), tail.end());
  return file;
}

void checkWaveLoop(const char* path, const WriterInput& input) {
  const kit::WaveChunks chunks = kit::readWaveChunks(path);
  require(chunks.chunkCount == (input.hasLoop ? 3 : 2));
  require(chunks.loops.size() == (input.hasLoop ? 1 : 0));
  if (input.hasLoop) {
    require(chunks.loops[0].type == 0 && chunks.loops[0].count == 0);
    require(chunks.loops[0].start == input.loopStart && chunks.loops[0].last == input.loopEnd);
  }
}

void checkWave(const WriterInput& input) {
  WaveFileFormat format{
      .channels = input.channels, .framesPerSecond = input.rate, .bitsPerSample = input.bits};
  if (input.hasLoop) {
    format.loop = {.start = input.loopStart, .last = input.loopEnd};
  }
  const auto size = static_cast<std::uint32_t>(input.samples.size());
  require(fitsWaveFile(format, size));
  const auto bytes =
      fileOf(waveFileHeader(format, size), input.samples, waveFileTail(format, size));
  require(bytes.size() == waveFormSize(format, size) + kChunkHeaderBytes);
  const HostileFile file(bytes.data(), bytes.size());
  WaveFile wave(file.path());
  WaveSampleInfo info;
  require(wave.load() && wave.getSampleInfo(info) && wave.isPcm());
  require(info.format.channels == input.channels && info.format.bitsPerSample == input.bits);
  require(info.format.samplesPerSecond == input.rate && info.size == size);
  require(std::equal(info.samples, info.samples + size, bytes.data() + kWaveHeaderBytes));
  checkWaveLoop(file.path(), input);
}

void checkAiffLoop(const AiffFile& aiff, const WriterInput& input) {
  std::uint32_t mode = 0;
  std::uint32_t start = 0;
  std::uint32_t end = 0;
  require(aiff.getLoop(1, mode, start, end) == input.hasLoop);
  require(aiff.getSustainLoopMode() == (input.hasLoop ? 1 : 0));
  require(!input.hasLoop || (mode == 1 && start == input.loopStart && end == input.loopEnd));
}

/// Requires the samples that the reader takes, converted: one for each frame.
void checkAiffSamples(const AiffFile& aiff, const WriterInput& input, std::uint16_t channels) {
  std::uint32_t size = 0;
  require(aiff.getDataSize(size));
  const std::uint32_t sampleBytes = input.bits / 8U;
  const std::size_t frames = input.samples.size() / (std::size_t{sampleBytes} * channels);
  require(size == frames * sampleBytes);
  for (std::uint32_t i = 0; i < size; ++i) {
    const auto stored = static_cast<std::uint8_t>(input.samples[input.bits == 8 ? i : i ^ 1U]);
    require(aiff.getSampleData()[i] == (input.bits == 8 ? stored ^ 0x80U : stored));
  }
}

void checkAiff(const WriterInput& input) {
  AiffFileFormat format{.channels = std::max<std::uint16_t>(input.channels, 1),
                        .framesPerSecond = input.rate,
                        .bitsPerSample = input.bits};
  if (input.hasLoop) {
    format.loop = {.start = input.loopStart, .end = input.loopEnd};
  }
  const auto size = static_cast<std::uint32_t>(input.samples.size());
  require(fitsAiffFile(format, size));
  const auto head = aiffFileHeader(format, size);
  require(head.size() == aiffHeaderSize(format));
  const auto bytes = fileOf(head, input.samples, aiffFileTail(size));
  const HostileFile file(bytes.data(), bytes.size());
  AiffFile aiff(file.path());
  std::uint32_t rate = 0;
  std::uint16_t bits = 0;
  require(aiff.load() && aiff.getSampleRate(rate) && rate == input.rate);
  require(aiff.getBitsPerSample(bits) && bits == input.bits);
  checkAiffSamples(aiff, input, format.channels);
  checkAiffLoop(aiff, input);
}

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  if (size >= fuzz::kHeadBytes) {
    const fuzz::WriterInput input = fuzz::inputOf(bytes, size);
    fuzz::checkWave(input);
    if (input.bits <= 16) {
      fuzz::checkAiff(input);
    }
  }
  return 0;
}
