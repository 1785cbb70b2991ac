#include "samples/wave_file.h"

#include <gtest/gtest.h>

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(WaveFile, TakesTheFormatAndTheSamplesBehindItFromFormAndFile) {
  const TemporaryDirectory directory;
  // The format of 24-bit stereo, extensible: 18 bytes, and 22 more.
  const std::string tail = Bytes().le16(6).le16(24).le16(22).fill(22, 0xEE);
  const std::string block = Bytes().le16(1).le16(2).le32(48000).le32(288000).text(tail);
  const std::string millionChunks(std::size_t{8} * 1000000, '\0');
  const std::string zeros(18, '\0');
  Bytes big;  // longer than what the reader holds at once
  for (std::uint32_t number = 0; number < 5000; ++number) {
    big.le32(number);
  }
  const std::string good = block.substr(0, 18) + "abc";
  const auto small = [&] { return wav().chunk("fmt ", block).chunk("odd ", "a").data("abc"); };
  const std::uint32_t header = 4 + (8 + 40) + (8 + 2) + 8;  // where that of `data` ends in the form
  std::vector<std::pair<std::string, std::string>> rows = {
      {wav().form("OTHR").data("no").str() + small().data("later").str(), good},
      {small().claimFormSize(0xFFFFFFFF), good},
      {small().claimFormSize(0xFFFFFFFF).str().insert(12, millionChunks), good},
      {small().claimFormSize(header), good},
      {small().claimFormSize(header - 1), ""},
      {wav().chunk("fmt ", '\3' + block.substr(1)).data("abc"), '\3' + good.substr(1)},
      {small().claimDataSize(5), ""},
      {small().claimSize("odd ", 0xFFFFFFF8), ""},
      {wav().chunk("odd ", big.substr(1)).chunk("fmt ", block).data(big),
       block.substr(0, 18) + big},
      {wav().data("abc").chunk("fmt ", block), ""}};
  for (const std::size_t length : {4U, 9U, 14U, 15U, 17U}) {
    const std::string cut = block.substr(0, length);
    rows.emplace_back(wav().chunk("fmt ", cut).data("abc"), cut + zeros.substr(length) + "abc");
  }
  for (const auto& [content, loaded] : rows) {
    WaveFile wave((directory.write("a.wav", content) + "e").c_str());  // opened with three letters
    EXPECT_EQ(wave.load(), !loaded.empty()) << content;
    WaveSampleInfo info;
    auto& [format, samples, size] = info;
    int answers = wave.getSampleInfo(info) + wave.getFormat(format) + wave.isPcm();
    answers += wave.isStereo() + wave.isMono() + wave.getChannels(format.channels);
    answers += wave.getFormatTag(format.formatTag) + wave.getSampleRate(format.samplesPerSecond);
    const int pcm = loaded.starts_with('\1') ? 1 : 0;
    EXPECT_EQ(answers, loaded.empty() ? 0 : 6 + pcm);  // of 8, as it isn't mono
    // Where numbers are little-endian, the record stands in memory as it stands in the file.
    const std::string kept(reinterpret_cast<const char*>(&format), 18);
    EXPECT_EQ(kept + std::string(samples, samples + size), loaded.empty() ? zeros : loaded);
    wave.releaseData();
    EXPECT_TRUE(wave.getSampleData() == nullptr && !wave.getSampleInfo(info));
  }
}

}  // namespace tavrel::test
