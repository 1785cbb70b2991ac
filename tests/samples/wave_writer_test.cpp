#include "samples/wave_writer.h"

#include "samples/wave_file.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

std::string written(const WaveFileFormat& format, const std::string& samples) {
  const auto size = static_cast<std::uint32_t>(samples.size());
  const auto header = waveFileHeader(format, size);
  const auto tail = waveFileTail(format, size);
  return std::string(header.begin(), header.end()) + samples +
         std::string(tail.begin(), tail.end());
}

TEST(WaveWriter, WritesWhatTheFormatStates) {
  const auto sampler = [](std::size_t period, std::size_t start, std::size_t last) {
    Bytes content = Bytes().fill(8).le32(period).le32(60).fill(12).le32(1).fill(12);
    return content.le32(start).le32(last).fill(8).str();
  };
  const struct {
    const char* name;
    WaveFileFormat format;
    std::string samples, expected;
  } rows[] = {
      {"8 bits, padded", {1, 22050, 8, {}}, "abc", wav().fmt(mono, 8, 22050).data("abc")},
      {"16 bits", {2, 44100, 16, {}}, "abcdefgh", wav().fmt(stereo, 16, 44100).data("abcdefgh")},
      {"24 bits", {1, 48000, 24, {}}, "abcdef", wav().fmt(mono, 24, 48000).data("abcdef")},
      {"32 bits, empty", {5, 8000, 32, {}}, "", wav().fmt(5, 32, 8000).data("")},
      {"loop after a pad byte",
       {1, 44100, 8, WaveLoop{1, 2}},
       "abc",
       wav().fmt(mono, 8, 44100).data("abc").chunk("smpl", sampler(22675, 1, 2))},
      {"loop without a rate",
       {1, 0, 16, WaveLoop{0x01020304, 0x05060708}},
       "ab",
       wav().fmt(mono, 16, 0).data("ab").chunk("smpl", sampler(0, 0x01020304, 0x05060708))},
  };
  for (const auto& [name, format, samples, expected] : rows) {
    SCOPED_TRACE(name);
    EXPECT_EQ(written(format, samples), expected);
  }
}

TEST(WaveWriter, FilesLoad) {
  const TemporaryDirectory directory;
  const WaveFileFormat format{2, 48000, 24, WaveLoop{0, 1}};
  WaveFile file(directory.write("out.wav", written(format, "abcdefghijkl")).c_str());
  ASSERT_TRUE(file.load());
  WaveSampleInfo info;
  ASSERT_TRUE(file.getSampleInfo(info));
  EXPECT_EQ(info.format.channels, 2);
  EXPECT_EQ(info.format.samplesPerSecond, 48000U);
  EXPECT_EQ(info.format.bitsPerSample, 24);
  EXPECT_EQ(std::string(info.samples, info.samples + info.size), "abcdefghijkl");
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
