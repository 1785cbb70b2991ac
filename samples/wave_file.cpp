#include "samples/wave_file.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tavrel {

namespace {

std::uint16_t readLittle16(const std::uint8_t* bytes) {
  return static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
}

std::uint32_t readLittle32(const std::uint8_t* bytes) {
  return readLittle16(bytes) | std::uint32_t{readLittle16(bytes + 2)} << 16;
}

}  // namespace

WaveFile::WaveFile(const char* fullName) : path(fullName) {}

bool WaveFile::load() {
  RiffFile riff(path.getFullPath());
  if (!riff.open()) {
    return false;
  }
  const bool complete = readFrom(riff);
  const bool closed = riff.close();
  loaded = complete && closed;
  return loaded;
}

bool WaveFile::readFrom(RiffFile& riff) {
  ChunkInfo wave;
  ChunkInfo chunk;
  return riff.descendRiff("WAVE", wave) && riff.descendChunk("fmt ", chunk, wave) &&
         readFormat(riff, chunk) && riff.ascend(chunk) && riff.descendChunk("data", chunk, wave) &&
         readSamples(riff, chunk);
}

bool WaveFile::readFormat(RiffFile& riff, const ChunkInfo& chunk) {
  std::array<std::uint8_t, WaveFormat::kStoredSize> stored{};
  if (!riff.readBytes(stored.data(), std::min(chunk.chunkSize, WaveFormat::kStoredSize))) {
    return false;
  }
  format.formatTag = readLittle16(stored.data());
  format.channels = readLittle16(stored.data() + 2);
  format.samplesPerSecond = readLittle32(stored.data() + 4);
  format.averageBytesPerSecond = readLittle32(stored.data() + 8);
  format.blockAlign = readLittle16(stored.data() + 12);
  format.bitsPerSample = readLittle16(stored.data() + 14);
  format.extraSize = readLittle16(stored.data() + 16);
  return true;
}

bool WaveFile::readSamples(RiffFile& riff, const ChunkInfo& chunk) {
  if (!riff.holdsChunk(chunk)) {
    return false;
  }
  sampleBytes = chunk.chunkSize;
  samples = newBytes(roundUp(sampleBytes, 4));
  return samples && riff.readChunk(chunk, samples.get());
}

bool WaveFile::getDataSize(std::uint32_t& size) const { return answer(size, sampleBytes); }

bool WaveFile::getBitsPerSample(std::uint16_t& bits) const {
  return answer(bits, format.bitsPerSample);
}

bool WaveFile::getChannels(std::uint16_t& channels) const {
  return answer(channels, format.channels);
}

bool WaveFile::getSampleRate(std::uint32_t& rate) const {
  return answer(rate, format.samplesPerSecond);
}

bool WaveFile::getFormatTag(std::uint16_t& tag) const { return answer(tag, format.formatTag); }

bool WaveFile::getFormat(WaveFormat& record) const { return answer(record, format); }

bool WaveFile::isStereo() const { return loaded && format.channels == 2; }

bool WaveFile::isMono() const { return loaded && format.channels == 1; }

bool WaveFile::isPcm() const { return loaded && format.formatTag == 1; }

bool WaveFile::getSampleInfo(WaveSampleInfo& record) const {
  return answer(record, {format, samples.get(), sampleBytes}) && samples;
}

std::uint8_t* WaveFile::getSampleData() const { return loaded ? samples.get() : nullptr; }

ByteBlock WaveFile::takeSamples() { return loaded ? std::move(samples) : nullptr; }

void WaveFile::releaseData() { samples.reset(); }

}  // namespace tavrel
