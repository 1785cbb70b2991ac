#include "samples/wave_file.h"

#include <algorithm>
#include <array>
#include <utility>

#include "foundation/byte_order.h"

namespace tavrel {

WaveFile::WaveFile(const char* fullName) : path_(fullName) {}

bool WaveFile::load() {
  RiffFile riff(path_.getFullPath());
  if (!riff.open()) {
    return fail(WaveFault::cannotOpen);
  }
  const bool complete = readChunks(riff);
  const bool closed = riff.close();
  loaded_ = complete && closed;
  return loaded_;
}

bool WaveFile::fail(WaveFault fault) {
  fault_ = fault;
  return false;
}

bool WaveFile::readChunks(RiffFile& riff) {
  ChunkInfo wave;
  ChunkInfo chunk;
  if (!riff.descendRiff("WAVE", wave)) {
    return fail(WaveFault::noForm);
  }
  if (!riff.descendChunk("fmt ", chunk, wave)) {
    return fail(WaveFault::noFormat);
  }
  if (!readFormat(riff, chunk)) {
    return fail(WaveFault::formatCut);
  }
  if (!riff.ascend(chunk) || !riff.descendChunk("data", chunk, wave)) {
    return fail(WaveFault::noData);
  }
  return readSamples(riff, chunk);
}

bool WaveFile::readFormat(RiffFile& riff, const ChunkInfo& chunk) {
  std::array<std::uint8_t, WaveFormat::kStoredSize> stored{};
  if (!riff.readBytes(stored.data(), std::min(chunk.chunkSize, WaveFormat::kStoredSize))) {
    return false;
  }
  format_.formatTag = loadLittle16(stored.data());
  format_.channels = loadLittle16(stored.data() + 2);
  format_.samplesPerSecond = loadLittle32(stored.data() + 4);
  format_.averageBytesPerSecond = loadLittle32(stored.data() + 8);
  format_.blockAlign = loadLittle16(stored.data() + 12);
  format_.bitsPerSample = loadLittle16(stored.data() + 14);
  format_.extraSize = loadLittle16(stored.data() + 16);
  return true;
}

bool WaveFile::readSamples(RiffFile& riff, const ChunkInfo& chunk) {
  if (!riff.holdsChunk(chunk)) {
    return fail(WaveFault::dataCut);
  }
  sampleBytes_ = chunk.chunkSize;
  samples_ = newBytes(roundUp(sampleBytes_, 4));
  if (!samples_) {
    return fail(WaveFault::noMemory);
  }
  return riff.readChunk(chunk, samples_.get()) || fail(WaveFault::dataCut);
}

bool WaveFile::getDataSize(std::uint32_t& size) const { return answer(size, sampleBytes_); }

bool WaveFile::getBitsPerSample(std::uint16_t& bits) const {
  return answer(bits, format_.bitsPerSample);
}

bool WaveFile::getChannels(std::uint16_t& channels) const {
  return answer(channels, format_.channels);
}

bool WaveFile::getSampleRate(std::uint32_t& rate) const {
  return answer(rate, format_.samplesPerSecond);
}

std::uint8_t* WaveFile::getSampleData() const { return loaded_ ? samples_.get() : nullptr; }

ByteBlock WaveFile::takeSamples() { return loaded_ ? std::move(samples_) : nullptr; }

bool WaveFile::getFormatTag(std::uint16_t& tag) const { return answer(tag, format_.formatTag); }

bool WaveFile::getFormat(WaveFormat& record) const { return answer(record, format_); }

bool WaveFile::isStereo() const { return loaded_ && format_.channels == 2; }

bool WaveFile::isMono() const { return loaded_ && format_.channels == 1; }

bool WaveFile::isPcm() const { return loaded_ && format_.formatTag == 1; }

bool WaveFile::getSampleInfo(WaveSampleInfo& record) const {
  return answer(record, {format_, samples_.get(), sampleBytes_}) && samples_;
}

void WaveFile::releaseData() { samples_.reset(); }

}  // namespace tavrel
