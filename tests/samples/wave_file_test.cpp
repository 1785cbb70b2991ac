#include "samples/wave_file.h"

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// What a query returns, and its out-value, which is 7 before.
template <typename Value>
std::string answer(const WaveFile& wave, bool (WaveFile::*query)(Value&) const) {
  Value value = 7;
  const std::string found = (wave.*query)(value) ? "" : "no ";
  return found + std::to_string(value) + ' ';
}

/// The fields in the order of the file, and the samples.
std::string textOf(const WaveFile& wave) {
  WaveSampleInfo info;
  const bool found = wave.getSampleInfo(info);
  const WaveFormat& format = info.format;
  return answer(wave, &WaveFile::getFormatTag) + answer(wave, &WaveFile::getChannels) +
         answer(wave, &WaveFile::getSampleRate) + std::to_string(format.averageBytesPerSecond) +
         ' ' + std::to_string(format.blockAlign) + ' ' + answer(wave, &WaveFile::getBitsPerSample) +
         std::to_string(format.extraSize) + ' ' + (wave.isMono() ? "mono " : "") +
         (wave.isStereo() ? "stereo " : "") + (wave.isPcm() ? "PCM " : "") +
         answer(wave, &WaveFile::getDataSize) +
         (found ? std::string(info.samples, info.samples + info.size) : "fails");
}

TEST(WaveFile, LoadsTheFirstFormatAndTheSamplesAfterItOrSaysWhyNot) {
  using enum WaveFault;
  // The format of 24-bit stereo, extensible: 18 bytes, and 22 more.
  const Bytes tail = Bytes().le16(6).le16(24).le16(22).fill(22, 0xEE);
  const std::string format = Bytes().le16(1).le16(2).le32(48000).le32(288000).text(tail);
  const std::string good = "1 2 48000 288000 6 24 22 stereo PCM ";
  const std::string failed = "no 7 no 7 no 7 0 0 no 7 0 no 7 fails";
  const auto small = [&] { return wav().chunk("fmt ", format).chunk("odd ", "a").data("abc"); };
  const auto cutTo = [&](std::size_t size) {
    return wav().chunk("fmt ", format.substr(0, size)).data("abc");
  };
  const std::uint32_t header = 4 + (8 + 40) + (8 + 2) + 8;  // where that of `data` ends in the form
  const struct {
    const char* name;
    std::string content, expected;
    WaveFault fault = none;
  } rows[] = {
      {"second form", wav().form("OTHR").data("no").str() + small().data("late").str(),
       good + "3 abc"},
      {"form after an odd chunk", Bytes().text("junk").le32(3).text("abc|") + small().str(),
       good + "3 abc"},
      {"form ends with the header", small().claimFormSize(header), good + "3 abc"},
      {"form ends in the header", small().claimFormSize(header - 1), failed, noData},
      {"form too short for its type", small().claimFormSize(3), failed, noForm},
      {"form ends after the file", small().claimFormSize(0xFFFFFFFF), good + "3 abc"},
      {"no bytes of samples", wav().chunk("fmt ", format).data(""), good + "0 "},
      {"format of 17 bytes", cutTo(17), good + "3 abc"},
      {"format of 0 bytes", cutTo(0), "0 0 0 0 0 0 0 3 abc"},
      {"form of its type only", wav().claimFormSize(4), failed, noFormat},
      {"no format", wav().data("abc"), failed, noFormat},
      {"format after the samples", wav().data("abc").chunk("fmt ", format), failed, noData},
      {"format ends after the file", cutTo(40).substr(0, 12 + 8 + 17), failed, formatCut},
      {"samples end after the file", small().claimDataSize(5), failed, dataCut},
      {"chunk ends after the file", small().claimSize("odd ", 0xFFFFFFF8), failed, noData},
  };
  const TemporaryDirectory directory;
  for (const auto& [name, content, expected, fault] : rows) {
    SCOPED_TRACE(name);
    // The reader cuts the extension to three letters.
    WaveFile wave((directory.write("a.wav", content) + "e").c_str());
    EXPECT_EQ(wave.openedName(), directory.path("a.wav"));
    EXPECT_EQ(wave.load(), fault == none);
    EXPECT_EQ(wave.fault(), fault);
    EXPECT_EQ(textOf(wave), expected);
    EXPECT_EQ(wave.getSampleData() != nullptr, fault == none);
  }
  WaveFile missing(directory.path("missing").c_str());
  EXPECT_FALSE(missing.load());
  EXPECT_EQ(missing.fault(), cannotOpen);
}

TEST(WaveFile, HandsOverOrReleasesItsSamples) {
  const TemporaryDirectory directory;
  WaveFile wave(directory.write("a.wav", wav().fmt(mono, 16, 22050).data("abc")).c_str());
  const std::string withoutSamples = "1 1 22050 44100 2 16 0 mono PCM 3 fails";
  EXPECT_EQ(textOf(wave), "no 7 no 7 no 7 0 0 no 7 0 no 7 fails") << "not loaded yet";
  EXPECT_TRUE(wave.load());
  const std::uint8_t* samples = wave.getSampleData();
  EXPECT_EQ(wave.takeSamples().get(), samples);
  EXPECT_EQ(textOf(wave), withoutSamples);
  EXPECT_TRUE(wave.load());
  wave.releaseData();
  EXPECT_EQ(textOf(wave), withoutSamples);
}

}  // namespace tavrel::test
