#include "samples/wave_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temporary_directory.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {

namespace {

const std::string kSamples = Bytes().le16(0x1234).le16(0x8000).le16(0x7FFF).le16(0);

constexpr const char* kFails = "doesn't load";

class WaveFileTest : public testing::Test {
 protected:
  WaveFile file(const std::string& content, const char* name = "a.wav") const {
    return WaveFile(directory.write(name, content).c_str());
  }

  /// The sample bytes of a file of this content, or `kFails`.
  std::string samplesOf(const std::string& content) {
    WaveFile wave = file(content);
    WaveSampleInfo info;
    if (!wave.load() || !wave.getSampleInfo(info)) {
      return kFails;
    }
    format = info.format;
    return {reinterpret_cast<const char*>(info.samples), info.size};
  }

  TemporaryDirectory directory;
  WaveFormat format;
};

WavBuilder small() { return wav().fmt(mono, 16, 8000).data(kSamples); }

}  // namespace

TEST_F(WaveFileTest, KeepsFormatAndBytesAsTheyStand) {
  for (const std::uint32_t channels : {mono, stereo, 6U}) {
    for (const std::uint32_t bits : {4U, 8U, 12U, 16U, 24U}) {
      WaveFile wave = file(wav().fmt(channels, bits, 22050).data("\x80\xFFz").str());
      ASSERT_TRUE(wave.load());
      std::uint32_t size = 0;
      std::uint32_t rate = 0;
      std::uint16_t width = 0;
      EXPECT_TRUE(wave.getDataSize(size) && wave.getSampleRate(rate));
      EXPECT_TRUE(wave.getBitsPerSample(width) && wave.isPcm());
      EXPECT_EQ(std::tuple(size, rate, width), std::tuple(3U, 22050U, bits));
      EXPECT_EQ(wave.getSampleData()[0], 0x80);
      EXPECT_EQ(wave.isMono(), channels == mono);
      EXPECT_EQ(wave.isStereo(), channels == stereo);
    }
  }
}

TEST_F(WaveFileTest, FormatBlockMayHaveAnySize) {
  // The extensible form has 40 bytes: 18, and 22 more.
  const std::string block =
      WavBuilder::format(stereo, 24, 48000) + Bytes().le16(22).fill(22, 0xEE).str();
  for (const std::uint32_t size : {0U, 4U, 14U, 15U, 16U, 17U, 18U, 40U}) {
    const std::string content = wav().chunk("fmt ", block.substr(0, size)).data(kSamples).str();
    ASSERT_EQ(samplesOf(content), kSamples) << size;
    EXPECT_EQ(format.channels, size >= 4 ? stereo : 0);
    EXPECT_EQ(format.samplesPerSecond, size >= 8 ? 48000U : 0);
    EXPECT_EQ(format.averageBytesPerSecond, size >= 12 ? 48000U * 6 : 0);
    EXPECT_EQ(format.blockAlign, size >= 14 ? 6 : 0);
    EXPECT_EQ(format.bitsPerSample, size >= 15 ? 24 : 0);
    EXPECT_EQ(format.extraSize, size >= 17 ? 22 : 0);
  }
}

TEST_F(WaveFileTest, OtherChunksAreSkipped) {
  const std::string format16 = WavBuilder::format(mono, 16, 8000);
  EXPECT_EQ(samplesOf(wav()
                          .chunk("odd ", "abc")
                          .chunk("fmt ", format16)
                          .chunk("odd ", "a")
                          .chunk("even", "ab")
                          .data(kSamples)
                          .chunk("smpl", "x")
                          .str()),
            kSamples);
  EXPECT_EQ(samplesOf(small().chunk("fmt ", "late").data("later").str()), kSamples);
  EXPECT_EQ(samplesOf(wav().form("OTHR").data("no").str() + small().str()), kSamples);
  EXPECT_EQ(samplesOf(wav().fmt(mono, 8, 8000).data("odd").withoutLastPad().str()), "odd");
  EXPECT_EQ(samplesOf(wav().data(kSamples).fmt(mono, 16, 8000).str()), kFails);
  EXPECT_EQ(samplesOf(wav().data(kSamples).str()), kFails);
  EXPECT_EQ(samplesOf(wav().fmt(mono, 16, 8000).str()), kFails);
  EXPECT_EQ(samplesOf(small().form("OTHR").str()), kFails);
  EXPECT_EQ(samplesOf("RIFX" + small().str().substr(4)), kFails) << "big-endian";
}

TEST_F(WaveFileTest, SizesAreOnlyClaims) {
  const std::uint32_t most = 0xFFFFFFFF;
  const std::uint32_t behindFormat = 4 + 8 + 16;
  EXPECT_EQ(samplesOf(small().claimFormSize(most).str()), kSamples);
  EXPECT_EQ(samplesOf(small().claimFormSize(behindFormat).str()), kFails);
  EXPECT_EQ(samplesOf(small().claimFormSize(0).str()), kFails);
  EXPECT_EQ(samplesOf(small().claimSize("fmt ", most).str()), kFails);
  EXPECT_EQ(samplesOf(small().claimSize("fmt ", 0).str()), kFails);
  EXPECT_EQ(samplesOf(small().claimDataSize(most).str()), kFails);
  EXPECT_EQ(samplesOf(small().claimDataSize(9).str()), kFails);
  EXPECT_EQ(samplesOf(small().claimDataSize(0).str()), "");
}

TEST_F(WaveFileTest, NoTruncatedFileLoads) {
  const std::string whole = small().str();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_EQ(samplesOf(whole.substr(0, size)), kFails) << size;
  }
  EXPECT_EQ(samplesOf(whole), kSamples);
}

TEST_F(WaveFileTest, AnswersOnlyWhileLoaded) {
  WaveFile wave = file(small().str());
  std::uint16_t value = 77;
  std::uint32_t rate = 77;
  WaveSampleInfo info;
  EXPECT_FALSE(wave.getBitsPerSample(value) || wave.getChannels(value) || wave.getFormatTag(value));
  EXPECT_FALSE(wave.getSampleRate(rate) || wave.getDataSize(rate) || wave.getSampleInfo(info));
  EXPECT_FALSE(wave.isMono() || wave.isStereo() || wave.isPcm() || wave.getFormat(format));
  EXPECT_EQ(wave.getSampleData(), nullptr);
  EXPECT_EQ(wave.takeSamples(), nullptr);
  EXPECT_EQ(value + rate, 77U + 77U);
  EXPECT_TRUE(wave.load() && wave.getFormatTag(value) && wave.getChannels(value));
  wave.releaseData();
  EXPECT_EQ(wave.getSampleData(), nullptr);
  EXPECT_FALSE(wave.getSampleInfo(info));
}

TEST_F(WaveFileTest, GivesItsSamplesAwayOnce) {
  WaveFile wave = file(small().str());
  ASSERT_TRUE(wave.load());
  const std::uint8_t* samples = wave.getSampleData();
  const ByteBlock taken = wave.takeSamples();
  EXPECT_EQ(taken.get(), samples);
  EXPECT_EQ(wave.getSampleData(), nullptr);
  EXPECT_EQ(wave.takeSamples(), nullptr);
}

TEST_F(WaveFileTest, OpensTheNameWithItsExtensionCutToThree) {
  EXPECT_TRUE(file(small().str(), "boom.sam").load());
  EXPECT_TRUE(WaveFile(directory.path("boom.sample").c_str()).load());
  EXPECT_FALSE(file(small().str(), "long.sample").load());
  EXPECT_FALSE(WaveFile(directory.path().c_str()).load());
  EXPECT_FALSE(WaveFile(nullptr).load());
}

}  // namespace tavrel::test
