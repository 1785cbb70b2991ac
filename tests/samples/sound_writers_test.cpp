#include <gtest/gtest.h>

#include "samples/aiff_writer.h"
#include "samples/wave_writer.h"
#include "tests/support/sound_builder.h"

namespace tavrel::test {

std::string fileOf(const auto& header, const std::string& samples, const auto& tail) {
  return std::string(header.begin(), header.end()) + samples +
         std::string(tail.begin(), tail.end());
}

std::string wavOf(const WaveFileFormat& format, const std::string& samples) {
  const auto size = static_cast<std::uint32_t>(samples.size());
  return fileOf(waveFileHeader(format, size), samples, waveFileTail(format, size));
}

std::string aiffOf(const AiffFileFormat& format, const std::string& samples) {
  const auto size = static_cast<std::uint32_t>(samples.size());
  return fileOf(aiffFileHeader(format, size), samples, aiffFileTail(size));
}

TEST(WaveWriter, WritesWhatTheFormatStates) {
  const auto sampler = [](std::size_t period, std::size_t start, std::size_t last) {
    Bytes head = Bytes().fill(8).le32(period).le32(60).fill(12).le32(1).fill(12);
    return head.le32(start).le32(last).fill(8);
  };
  EXPECT_EQ(wavOf({2, 44100, 16, {}}, "abcdefgh"), wav().fmt(stereo, 16, 44100).data("abcdefgh"));
  EXPECT_EQ(wavOf({5, 8000, 32, {}}, ""), wav().fmt(5, 32, 8000).data(""));
  EXPECT_EQ(wavOf({1, 44100, 8, WaveLoop{1, 2}}, "abc"),
            wav().fmt(mono, 8, 44100).data("abc").chunk("smpl", sampler(22675, 1, 2)))
      << "a sample takes 22675 ns";
  EXPECT_EQ(wavOf({1, 0, 16, WaveLoop{0x01020304, 0x05060708}}, "ab"),
            wav().fmt(mono, 16, 0).data("ab").chunk("smpl", sampler(0, 0x01020304, 0x05060708)));
}

TEST(AiffWriter, WritesWhatTheFormatStates) {
  const Bytes instrument = Bytes().u8(60).be16(0).u8(127).u8(1).u8(127).be16(0);
  const std::string forward = Bytes(instrument).be16(1).be16(1).be16(2).fill(6);
  const Bytes noRate = Bytes().be16(2).be32(3).be16(8).fill(10);
  const Bytes oneHertz = Bytes().be16(1).be32(3).be16(8).be16(0x3FFF).be32(1U << 31).be32(0);
  EXPECT_EQ(aiffOf({2, 0, 8, {}}, "abcdef"), aiff().chunk("COMM", noRate).ssnd("abcdef"));
  EXPECT_EQ(aiffOf({1, 44100, 16, AiffMarkedLoop{7, 0xFFFFFFFE}}, "abcdef"),
            aiff()
                .comm(mono, 3, 16)
                .mark({{1, 7}, {2, 0xFFFFFFFE}})
                .chunk("INST", forward)
                .ssnd("abcdef"));
  EXPECT_EQ(aiffOf({1, 1, 8, {}}, "abc"), aiff().chunk("COMM", oneHertz).ssnd("abc"));
}

TEST(SoundWriters, RefuseSizesBeyondTheirFields) {
  const WaveFileFormat looped{.loop = WaveLoop{}};
  EXPECT_TRUE(fitsWaveFile({}, 0xFFFFFFFF - 36 - 1));
  EXPECT_FALSE(fitsWaveFile({}, 0xFFFFFFFF - 36)) << "odd: the pad byte doesn't fit";
  EXPECT_TRUE(fitsWaveFile(looped, 0xFFFFFFFF - 36 - 68 - 1));
  EXPECT_FALSE(fitsWaveFile(looped, 0xFFFFFFFF - 36 - 68));
  EXPECT_FALSE(fitsWaveFile({}, 0xFFFFFFFFFFFFFFFF));
  EXPECT_TRUE(fitsAiffFile({}, 0xFFFFFFFF - 54 - 1));
  EXPECT_FALSE(fitsAiffFile({}, 0xFFFFFFFF - 54));
  EXPECT_FALSE(fitsAiffFile({.loop = AiffMarkedLoop{}}, 0xFFFFFFFF - 54 - 54));
}

}  // namespace tavrel::test
