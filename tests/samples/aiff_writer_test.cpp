#include "samples/aiff_writer.h"

#include "samples/aiff_file.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

std::string written(const AiffFileFormat& format, const std::string& samples) {
  const auto size = static_cast<std::uint32_t>(samples.size());
  const auto header = aiffFileHeader(format, size);
  const auto tail = aiffFileTail(size);
  EXPECT_EQ(header.size(), aiffHeaderSize(format));
  return std::string(header.begin(), header.end()) + samples +
         std::string(tail.begin(), tail.end());
}

TEST(AiffWriter, WritesWhatTheFormatStates) {
  const Bytes instrument = Bytes().u8(60).be16(0).u8(127).u8(1).u8(127).be16(0);
  const std::string forward = Bytes(instrument).be16(1).be16(1).be16(2).fill(6);
  EXPECT_EQ(written({2, 44100, 8, {}}, "abcdef"), aiff().comm(stereo, 3, 8).ssnd("abcdef"));
  EXPECT_EQ(written({1, 44100, 16, AiffMarkedLoop{7, 0xFFFFFFFE}}, "abcdef"),
            aiff()
                .comm(mono, 3, 16)
                .mark({{1, 7}, {2, 0xFFFFFFFE}})
                .chunk("INST", forward)
                .ssnd("abcdef"));
  EXPECT_EQ(written({1, 44100, 8, {}}, "abc"), aiff().comm(mono, 3, 8).ssnd("abc"));
}

TEST(AiffWriter, WritesAnyRate) {
  const TemporaryDirectory directory;
  for (const std::uint32_t rate : {0U, 1U, 2U, 11025U, 0x7FFFFFFFU, 0xFFFFFFFFU}) {
    AiffFile file(directory.write("out.aif", written({1, rate, 16, {}}, "abcd")).c_str());
    EXPECT_TRUE(file.load());
    EXPECT_EQ(file.common.sampleRate, rate);
  }
}

TEST(AiffWriter, RefusesSizesBeyondTheirFields) {
  EXPECT_TRUE(fitsAiffFile({}, 0xFFFFFFFF - 54 - 1));
  EXPECT_FALSE(fitsAiffFile({}, 0xFFFFFFFF - 54));
  EXPECT_FALSE(fitsAiffFile({.loop = AiffMarkedLoop{}}, 0xFFFFFFFF - 54 - 54));
  EXPECT_FALSE(fitsAiffFile({}, 0xFFFFFFFFFFFFFFFF));
}

}  // namespace tavrel::test
