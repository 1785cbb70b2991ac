#include "samples/wave_file.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/support/temporary_directory.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {

namespace {

const std::string kSamples = Bytes().le16(0x1234).le16(0x8000).le16(0x7FFF).le16(0);

std::string samplesOf(const WaveFile& file) {
  std::uint32_t size = 0;
  EXPECT_TRUE(file.getDataSize(size));
  return {reinterpret_cast<const char*>(file.getSampleData()), size};
}

class WaveFileTest : public testing::Test {
 protected:
  WaveFile file(const std::string& content, const char* name = "a.wav") const {
    return WaveFile(directory.write(name, content).c_str());
  }

  TemporaryDirectory directory;
};

}  // namespace

TEST_F(WaveFileTest, KeepsFormatAndBytesAsTheyStand) {
  const struct {
    std::uint32_t channels;
    std::uint32_t bits;
    std::string samples;
    bool padded;
  } rows[] = {{mono, 16, kSamples, true},      {stereo, 16, kSamples, true},
              {mono, 8, "\x80\xFF\x01", true}, {stereo, 8, "abc", false},
              {mono, 4, "xyz", true},          {mono, 12, "1234", true},
              {6, 24, "123456", true}};
  for (const auto& row : rows) {
    WavBuilder builder = wav().fmt(row.channels, row.bits, 22050).data(row.samples);
    WaveFile wave = file((row.padded ? builder : builder.withoutLastPad()).str());
    ASSERT_TRUE(wave.load()) << row.bits;
    EXPECT_EQ(samplesOf(wave), row.samples);
    WaveSampleInfo info;
    ASSERT_TRUE(wave.getSampleInfo(info));
    EXPECT_EQ(info.samples, wave.getSampleData());
    EXPECT_EQ(info.size, row.samples.size());
    EXPECT_EQ(info.format.channels, row.channels);
    EXPECT_EQ(info.format.blockAlign, row.channels * ((row.bits + 7) / 8));
    EXPECT_EQ(info.format.averageBytesPerSecond, 22050U * info.format.blockAlign);
    EXPECT_EQ(wave.isMono(), row.channels == mono);
    EXPECT_EQ(wave.isStereo(), row.channels == stereo);
    EXPECT_TRUE(wave.isPcm());
    std::uint16_t bits = 0;
    EXPECT_TRUE(wave.getBitsPerSample(bits));
    EXPECT_EQ(bits, row.bits);
    std::uint32_t rate = 0;
    EXPECT_TRUE(wave.getSampleRate(rate));
    EXPECT_EQ(rate, 22050U);
    wave.releaseData();
    EXPECT_EQ(wave.getSampleData(), nullptr);
    EXPECT_FALSE(wave.getSampleInfo(info));
  }
}

TEST_F(WaveFileTest, FormatBlockMayHaveAnySize) {
  const std::string more = Bytes().le16(22).fill(22, 0xEE);  // the extensible form: 40 bytes
  const std::string block = WavBuilder::format(stereo, 24, 48000) + more;
  for (const std::uint32_t size : {0U, 4U, 14U, 15U, 16U, 17U, 18U, 40U}) {
    WaveFile wave = file(wav().chunk("fmt ", block.substr(0, size)).data(kSamples).str());
    ASSERT_TRUE(wave.load()) << size;
    EXPECT_EQ(samplesOf(wave), kSamples) << size;
    WaveFormat format;
    EXPECT_TRUE(wave.getFormat(format));
    EXPECT_EQ(format.channels, size >= 4 ? stereo : 0);
    EXPECT_EQ(format.samplesPerSecond, size >= 8 ? 48000U : 0);
    EXPECT_EQ(format.bitsPerSample, size >= 15 ? 24 : 0);
    EXPECT_EQ(format.extraSize, size >= 17 ? 22 : 0);
  }
}

TEST_F(WaveFileTest, OtherChunksAreSkipped) {
  const std::string format = WavBuilder::format(mono, 16, 8000);
  const struct {
    const char* what;
    std::string content;
    bool loads;
  } rows[] = {
      {"chunks all around",
       wav()
           .chunk("odd ", "abc")
           .fmt(mono, 16, 8000)
           .chunk("even", "ab")
           .chunk("odd ", "a")
           .data(kSamples)
           .chunk("smpl", "x")
           .str(),
       true},
      {"two of either: the first counts",
       wav().fmt(mono, 16, 8000).chunk("fmt ", "late").data(kSamples).data("later").str(), true},
      {"junk in front of the RIFF chunk",
       "junk" + Bytes().le32(1).text("j").u8(0).str() +
           wav().fmt(mono, 16, 8000).data(kSamples).str(),
       true},
      {"the form after another form",
       wav().form("OTHR").data("no").str() + wav().fmt(mono, 16, 8000).data(kSamples).str(), true},
      {"data before fmt", wav().data(kSamples).fmt(mono, 16, 8000).str(), false},
      {"data behind the end of the form",
       wav().fmt(mono, 16, 8000).data(kSamples).claimFormSize(4 + 8 + 16).str(), false},
      {"another form", wav().form("OTHR").fmt(mono, 16, 8000).data(kSamples).str(), false},
      {"no fmt", wav().data(kSamples).str(), false},
      {"no data", wav().fmt(mono, 16, 8000).str(), false},
      {"big-endian RIFX", "RIFX" + wav().fmt(mono, 16, 8000).data(kSamples).str().substr(4), false},
  };
  for (const auto& row : rows) {
    WaveFile wave = file(row.content);
    ASSERT_EQ(wave.load(), row.loads) << row.what;
    WaveFormat record;
    EXPECT_EQ(wave.getFormat(record) && samplesOf(wave) == kSamples, row.loads) << row.what;
    EXPECT_EQ(record.bitsPerSample, row.loads ? 16 : 0) << row.what;
  }
}

TEST_F(WaveFileTest, SizesAreOnlyClaims) {
  const struct {
    const char* id;
    std::uint32_t size;
    bool loads;
  } rows[] = {{"fmt ", 0, false},          {"fmt ", 0xFFFFFFFF, false}, {"data", 0, true},
              {"data", 0xFFFFFFFF, false}, {"data", 9, false},          {"data", 8, true},
              {"RIFF", 0, false},          {"RIFF", 0xFFFFFFFF, true},  {"RIFF", 36, true}};
  for (const auto& row : rows) {
    WavBuilder builder = wav().fmt(mono, 16, 8000).data(kSamples).claimSize(row.id, row.size);
    if (std::string(row.id) == "RIFF") {
      builder.claimFormSize(row.size);
    }
    WaveFile wave = file(builder.str());
    EXPECT_EQ(wave.load(), row.loads) << row.id << row.size;
    std::uint32_t size = 77;
    EXPECT_EQ(wave.getDataSize(size), row.loads);
    EXPECT_EQ(size, row.loads ? (std::string(row.id) == "data" ? row.size : 8) : 77);
  }
}

TEST_F(WaveFileTest, NoTruncatedFileLoads) {
  const std::string whole = wav().fmt(mono, 16, 8000).chunk("odd ", "abc").data(kSamples).str();
  for (std::size_t size = 0; size < whole.size(); ++size) {
    EXPECT_FALSE(file(whole.substr(0, size)).load()) << size;
  }
  EXPECT_TRUE(file(whole).load());
}

TEST_F(WaveFileTest, NothingAnswersBeforeLoad) {
  const WaveFile wave = file(wav().fmt(mono, 16, 8000).data(kSamples).str());
  std::uint16_t value = 77;
  std::uint32_t rate = 77;
  WaveSampleInfo info;
  EXPECT_FALSE(wave.getBitsPerSample(value) || wave.getChannels(value) || wave.getFormatTag(value));
  EXPECT_FALSE(wave.getSampleRate(rate) || wave.getSampleInfo(info));
  EXPECT_FALSE(wave.isMono() || wave.isStereo() || wave.isPcm());
  EXPECT_EQ(wave.getSampleData(), nullptr);
  EXPECT_EQ(value, 77);
  EXPECT_EQ(rate, 77U);
}

TEST_F(WaveFileTest, OpensTheNameWithItsExtensionCutToThree) {
  const std::string content = wav().fmt(mono, 16, 8000).data(kSamples).str();
  EXPECT_TRUE(file(content, "boom.sam").load());
  EXPECT_TRUE(WaveFile(directory.path("boom.sample").c_str()).load());
  EXPECT_FALSE(file(content, "long.sample").load());
  EXPECT_FALSE(WaveFile(directory.path("missing.wav").c_str()).load());
  EXPECT_FALSE(WaveFile(directory.path().c_str()).load());
  EXPECT_FALSE(WaveFile(nullptr).load());
}

}  // namespace tavrel::test
