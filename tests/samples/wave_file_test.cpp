#include "samples/wave_file.h"

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// The fields in the order of the file, each followed by a space, and the samples.
std::string textOf(const WaveSampleInfo& info) {
  const auto& [tag, channels, rate, byteRate, align, bits, extra] = info.format;
  std::string text;
  for (const std::size_t field :
       {0U + tag, 0U + channels, rate, byteRate, 0U + align, 0U + bits, 0U + extra}) {
    text += std::to_string(field) + ' ';
  }
  return text.append(info.samples, info.samples + info.size);
}

TEST(WaveFile, LoadsTheFirstFormatAndTheSamplesAfterIt) {
  // The format of 24-bit stereo, extensible: 18 bytes, and 22 more.
  const Bytes tail = Bytes().le16(6).le16(24).le16(22).fill(22, 0xEE);
  const std::string format = Bytes().le16(1).le16(2).le32(48000).le32(288000).text(tail);
  const std::string millionChunks(std::size_t{8} * 1000000, '\0');
  const std::string good = "1 2 48000 288000 6 24 22 ";
  const auto small = [&] { return wav().chunk("fmt ", format).chunk("odd ", "a").data("abc"); };
  const auto cutTo = [&](std::size_t size) {
    return wav().chunk("fmt ", format.substr(0, size)).data("abc");
  };
  const std::uint32_t header = 4 + (8 + 40) + (8 + 2) + 8;  // where that of `data` ends in the form
  const struct {
    const char* name;
    std::string content, expected;
  } rows[] = {
      {"second form", wav().form("OTHR").data("no").str() + small().data("late").str(),
       good + "abc"},
      {"form after an odd chunk", Bytes().text("junk").le32(3).text("abc|") + small().str(),
       good + "abc"},
      {"form ends after the file", small().claimFormSize(0xFFFFFFFF), good + "abc"},
      {"form ends with the header", small().claimFormSize(header), good + "abc"},
      {"form ends in the header", small().claimFormSize(header - 1), "fails"},
      {"form too short for its type", small().claimFormSize(3), "fails"},
      {"a million chunks", small().claimFormSize(0xFFFFFFFF).str().insert(12, millionChunks),
       good + "abc"},
      {"no bytes of samples", wav().chunk("fmt ", format).data(""), good},
      {"format of 17 bytes", cutTo(17), good + "abc"},
      {"format of 16 bytes", cutTo(16), "1 2 48000 288000 6 24 0 abc"},
      {"format of 9 bytes", cutTo(9), "1 2 48000 0 0 0 0 abc"},
      {"format of 0 bytes", cutTo(0), "0 0 0 0 0 0 0 abc"},
      {"no format", wav().data("abc"), "fails"},
      {"format after the samples", wav().data("abc").chunk("fmt ", format), "fails"},
      {"format ends after the file", cutTo(40).substr(0, 12 + 8 + 17), "fails"},
      {"samples end after the file", small().claimDataSize(5), "fails"},
      {"chunk ends after the file", small().claimSize("odd ", 0xFFFFFFF8), "fails"},
  };
  const TemporaryDirectory directory;
  for (const auto& [name, content, expected] : rows) {
    SCOPED_TRACE(name);
    // The reader cuts the extension to three letters.
    WaveFile wave((directory.write("a.wav", content) + "e").c_str());
    WaveSampleInfo info;
    EXPECT_EQ(wave.load(), expected != "fails");
    EXPECT_EQ(wave.getSampleInfo(info) ? textOf(info) : "fails", expected);
    EXPECT_EQ(wave.getSampleData(), info.samples);
  }
}

/// What each query answers: its out-value if it is true, "-" if it is false and leaves it alone.
std::string answersOf(const WaveFile& wave) {
  std::string text;
  const auto ask = [&]<typename Value>(bool (WaveFile::*query)(Value&) const) {
    Value value = 7;
    const bool answers = (wave.*query)(value);
    text += answers || value != 7 ? std::to_string(value) + ' ' : "- ";
  };
  ask(&WaveFile::getDataSize);
  ask(&WaveFile::getBitsPerSample);
  ask(&WaveFile::getChannels);
  ask(&WaveFile::getSampleRate);
  ask(&WaveFile::getFormatTag);
  return text + (wave.isMono() ? "mono " : "") + (wave.isStereo() ? "stereo " : "") +
         (wave.isPcm() ? "PCM" : "");
}

TEST(WaveFile, AnswersOnlyWhenLoaded) {
  const TemporaryDirectory directory;
  const auto content = [](std::uint32_t channels) { return wav().fmt(channels, 16, 22050); };
  WaveFile first(directory.write("1.wav", content(mono).data("abc")).c_str());
  WaveFile second(directory.write("2.wav", content(stereo).data("").replace(20, 1, "\3")).c_str());
  EXPECT_EQ(answersOf(first), "- - - - - ");
  EXPECT_TRUE(first.load());
  EXPECT_TRUE(second.load());
  EXPECT_EQ(answersOf(first), "3 16 1 22050 1 mono PCM");
  EXPECT_EQ(answersOf(second), "0 16 2 22050 3 stereo ");
  const std::uint8_t* samples = first.getSampleData();
  EXPECT_EQ(first.takeSamples().get(), samples);
  EXPECT_EQ(first.getSampleData(), nullptr);
  second.releaseData();
  WaveSampleInfo info;
  EXPECT_FALSE(second.getSampleInfo(info));
}

}  // namespace tavrel::test
