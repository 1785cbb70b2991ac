#include "samples/riff_file.h"

#include <gmock/gmock.h>

#include <array>
#include <type_traits>

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

static_assert(!std::is_copy_constructible_v<RiffFile> && !std::is_move_constructible_v<RiffFile>);

TEST(RiffFile, StepsForwardThroughFormsListsAndChunks) {
  const std::string other = wav().form("OTHR").chunk("RIFF", "WAVE");
  const std::string list = wav().chunk("LIST", Bytes().text("INFOISFT").le32(3).text("abc"));
  const std::string last = Bytes().text("none").le32(0);
  const TemporaryDirectory directory;
  RiffFile riff(directory.write("a.wav", other + list + last).c_str());
  ChunkInfo wave;
  ChunkInfo info;
  char text[10] = "12345";
  EXPECT_THAT((std::array{riff.close(), riff.descendRiff("WAVE", info), riff.ascend(info),
                          riff.holdsChunk({}), riff.readBytes(nullptr, 0), riff.isOpen}),
              testing::Each(false));
  EXPECT_THAT((std::array{riff.open(), !riff.open(), riff.isOpen, riff.hasRiffForm("OTHR", info),
                          riff.descendRiff("WAVE", wave), riff.descendList("INFO", info),
                          riff.descendNext(info, wave), !riff.holdsChunk({0, 13}),
                          riff.readChunk(info, text), riff.ascend(info),
                          !riff.descendNext(wave, wave), riff.descendNamedChunk("none", wave)}),
              testing::Each(true));
  EXPECT_STREQ(text, "abc45");
  RiffFile::fourCcToText(info.chunkId, text);
  EXPECT_STREQ(text, "ISFT");
  EXPECT_TRUE(RiffFile::fourCcEquals("ISFT", info.chunkId));
  EXPECT_FALSE(RiffFile::fourCcEquals("ISFt", info.chunkId));
  EXPECT_FALSE(riff.readBytes(text, 1)) << "nothing is left";
  EXPECT_FALSE(riff.descendChunkById(info.chunkId, info));
  EXPECT_FALSE(riff.hasRiffForm("OTHR", info));
  EXPECT_TRUE(riff.close());
  EXPECT_FALSE(riff.isOpen);
}

}  // namespace tavrel::test
