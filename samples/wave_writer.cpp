#include "samples/wave_writer.h"

#include "foundation/byte_order.h"

namespace tavrel {

namespace {

constexpr std::uint16_t kPcm = 1;
constexpr std::uint32_t kMiddleC = 60;

/// Writes a chunk's id and the size of its content.
void storeChunkHeader(std::uint8_t* bytes, const char* id, std::uint32_t contentSize) {
  storeLittle32(bytes, littleFourCc(id));
  storeLittle32(bytes + 4, contentSize);
}

void storeFormat(std::uint8_t* bytes, const WaveFileFormat& format) {
  const std::uint32_t frameBytes = format.channels * ((format.bitsPerSample + 7U) / 8U);
  storeChunkHeader(bytes, "fmt ", kWaveFormatBytes - kChunkHeaderBytes);
  storeLittle16(bytes + 8, kPcm);
  storeLittle16(bytes + 10, format.channels);
  storeLittle32(bytes + 12, format.framesPerSecond);
  storeLittle32(bytes + 16, format.framesPerSecond * frameBytes);
  storeLittle16(bytes + 20, static_cast<std::uint16_t>(frameBytes));
  storeLittle16(bytes + 22, format.bitsPerSample);
}

std::uint32_t nanosecondsPerFrame(const WaveFileFormat& format) {
  return format.framesPerSecond != 0 ? 1'000'000'000 / format.framesPerSecond : 0;
}

/// Writes the fields that aren't 0 into bytes that are.
void storeSampler(std::uint8_t* bytes, const WaveFileFormat& format, const WaveLoop& loop) {
  storeChunkHeader(bytes, "smpl", kSamplerBytes - kChunkHeaderBytes);
  storeLittle32(bytes + 16, nanosecondsPerFrame(format));
  storeLittle32(bytes + 20, kMiddleC);
  storeLittle32(bytes + 36, 1);
  storeLittle32(bytes + 52, loop.start);
  storeLittle32(bytes + 56, loop.last);
}

}  // namespace

std::array<std::uint8_t, kWaveHeaderBytes> waveFileHeader(const WaveFileFormat& format,
                                                          std::uint32_t sampleBytes) {
  std::array<std::uint8_t, kWaveHeaderBytes> header{};
  const auto formSize = static_cast<std::uint32_t>(waveFormSize(format, sampleBytes));
  storeChunkHeader(header.data(), "RIFF", formSize);
  storeLittle32(header.data() + 8, littleFourCc("WAVE"));
  storeFormat(header.data() + 12, format);
  storeChunkHeader(header.data() + 12 + kWaveFormatBytes, "data", sampleBytes);
  return header;
}

std::vector<std::uint8_t> waveFileTail(const WaveFileFormat& format, std::uint32_t sampleBytes) {
  const std::uint32_t padBytes = sampleBytes % 2;
  std::vector<std::uint8_t> tail(padBytes + (format.loop ? kSamplerBytes : 0));
  if (format.loop) {
    storeSampler(tail.data() + padBytes, format, *format.loop);
  }
  return tail;
}

}  // namespace tavrel
