#include "samples/riff_file.h"

#include <type_traits>

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

static_assert(!std::is_copy_constructible_v<RiffFile> && !std::is_move_constructible_v<RiffFile>);

TEST(RiffFile, StepsForwardThroughFormsListsAndChunks) {
  const std::string other = wav().form("OTHR").chunk("RIFF", "WAVE");
  const std::string list = wav().chunk("LIST", Bytes().text("INFOISFT").le32(3).text("abc"));
  const TemporaryDirectory directory;
  RiffFile riff(directory.write("a.wav", other + list).c_str());
  ChunkInfo info;
  std::string text = "12345";
  ASSERT_TRUE(riff.open());
  EXPECT_TRUE(riff.hasRiffForm("OTHR", info));
  EXPECT_TRUE(riff.descendRiff("WAVE", info));
  EXPECT_TRUE(riff.descendList("INFO", info));
  EXPECT_TRUE(riff.descendNamedChunk("ISFT", info));
  EXPECT_FALSE(riff.holdsChunk({0, 5}));
  EXPECT_TRUE(riff.readChunk(info, text.data()));
  EXPECT_EQ(text, "abc45");
  RiffFile::fourCcToText(info.chunkId, text.data());
  EXPECT_EQ(text, std::string("ISFT\0", 5));
  EXPECT_TRUE(RiffFile::fourCcEquals("ISFT", info.chunkId));
  EXPECT_FALSE(RiffFile::fourCcEquals("ISFt", info.chunkId));
  EXPECT_FALSE(riff.readBytes(text.data(), 2)) << "only the pad byte is left";
  EXPECT_FALSE(riff.descendChunkById(info.chunkId, info));
  EXPECT_FALSE(riff.hasRiffForm("OTHR", info));
  EXPECT_TRUE(riff.close());
}

TEST(RiffFile, IsOpenFromOpenToClose) {
  const TemporaryDirectory directory;
  const std::string path = directory.write("a.wav", wav());
  RiffFile riff(path.c_str());
  ChunkInfo info;
  EXPECT_FALSE(riff.close());
  EXPECT_FALSE(riff.descendRiff("WAVE", info));
  EXPECT_FALSE(riff.ascend(info));
  EXPECT_FALSE(riff.holdsChunk({}));
  EXPECT_FALSE(riff.readBytes(nullptr, 0));
  EXPECT_TRUE(riff.open());
  EXPECT_FALSE(riff.open());
  EXPECT_TRUE(riff.isOpen);
  EXPECT_TRUE(riff.close());
  EXPECT_FALSE(riff.isOpen);
}

}  // namespace tavrel::test
