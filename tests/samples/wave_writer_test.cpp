#include "samples/wave_writer.h"

#include <gtest/gtest.h>

#include "tests/support/sound_builder.h"

namespace tavrel::test {

std::string written(const WaveFileFormat& format, const std::string& samples) {
  const auto size = static_cast<std::uint32_t>(samples.size());
  const auto header = waveFileHeader(format, size);
  const auto tail = waveFileTail(format, size);
  return std::string(header.begin(), header.end()) + samples +
         std::string(tail.begin(), tail.end());
}

TEST(WaveWriter, WritesWhatTheFormatStates) {
  const struct {
    const char* name;
    WaveFileFormat format;
    const char* samples;
    std::size_t period = 0;  // of a sample in nanoseconds
  } rows[] = {{"8 bits, padded", {1, 22050, 8, {}}, "abc"},
              {"16 bits", {2, 44100, 16, {}}, "abcdefgh"},
              {"32 bits, empty", {5, 8000, 32, {}}, ""},
              {"loop after a pad byte", {1, 44100, 8, WaveLoop{1, 2}}, "abc", 22675},
              {"loop without a rate", {1, 0, 16, WaveLoop{0x01020304, 0x05060708}}, "ab"}};
  for (const auto& [name, format, samples, period] : rows) {
    SCOPED_TRACE(name);
    const auto& [channels, rate, bits, loop] = format;
    WavBuilder expected = wav().fmt(channels, bits, rate).data(samples);
    if (loop) {
      Bytes sampler = Bytes().fill(8).le32(period).le32(60).fill(12).le32(1).fill(12);
      expected.chunk("smpl", sampler.le32(loop->start).le32(loop->last).fill(8));
    }
    EXPECT_EQ(written(format, samples), expected);
  }
}

TEST(WaveWriter, RefusesSizesBeyondTheirFields) {
  const WaveFileFormat plain;
  WaveFileFormat looped;
  looped.loop = WaveLoop{};
  EXPECT_TRUE(fitsWaveFile(plain, 0xFFFFFFFF - 36 - 1));
  EXPECT_FALSE(fitsWaveFile(plain, 0xFFFFFFFF - 36));  // odd: the pad byte doesn't fit
  EXPECT_TRUE(fitsWaveFile(looped, 0xFFFFFFFF - 36 - 68 - 1));
  EXPECT_FALSE(fitsWaveFile(looped, 0xFFFFFFFF - 36 - 68));
  EXPECT_FALSE(fitsWaveFile(plain, 0xFFFFFFFFFFFFFFFF));
}

}  // namespace tavrel::test
