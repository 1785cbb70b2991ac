#include "samples/riff_file.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_directory.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {

TEST(RiffFile, OpensAndClosesOnce) {
  const TemporaryDirectory directory;
  RiffFile riff(directory.write("a.wav", wav().str()).c_str());
  EXPECT_FALSE(riff.isOpen);
  EXPECT_FALSE(riff.close());
  EXPECT_TRUE(riff.open());
  const MmioHandle handle = riff.handle;
  EXPECT_FALSE(riff.open());
  EXPECT_TRUE(riff.isOpen);
  EXPECT_EQ(riff.handle, handle);
  EXPECT_TRUE(riff.close());
  EXPECT_FALSE(riff.isOpen);
  EXPECT_FALSE(riff.close());
  EXPECT_FALSE(RiffFile(directory.path("missing").c_str()).open());
}

TEST(RiffFile, FindsEveryKindOfChunk) {
  const TemporaryDirectory directory;
  const std::string list = Bytes().text("INFO").text("ISFT").le32(4).text("abcd");
  const std::string other = wav().form("OTHR").chunk("LIST", list).str();
  const std::string name =
      directory.write("a.wav", other + wav().chunk("LIST", "none").chunk("LIST", list).str());
  RiffFile riff(name.c_str());
  ASSERT_TRUE(riff.open());
  ChunkInfo wave;
  ChunkInfo info;
  ASSERT_TRUE(riff.descendRiff("WAVE", wave));
  EXPECT_EQ(wave.dataOffset, other.size() + 8);
  ASSERT_TRUE(riff.descendList("INFO", info));
  EXPECT_TRUE(RiffFile::fourCcEquals("INFO", info.formType));
  EXPECT_FALSE(RiffFile::fourCcEquals("INF ", info.formType));
  ChunkInfo soft;
  ASSERT_TRUE(riff.descendNamedChunk("ISFT", soft));
  EXPECT_TRUE(riff.ascend(info));
  EXPECT_FALSE(riff.descendChunkById(soft.chunkId, info)) << "a search goes forward";
  char text[5] = {};
  RiffFile::fourCcToText(soft.chunkId, text);
  EXPECT_STREQ(text, "ISFT");
  EXPECT_TRUE(riff.close());

  ASSERT_TRUE(riff.open());
  EXPECT_TRUE(riff.hasRiffForm("OTHR", info));
  EXPECT_TRUE(riff.hasRiffForm("WAVE", info));
  EXPECT_FALSE(riff.hasRiffForm("WAVE", info)) << "the position is behind the chunk";
  EXPECT_TRUE(riff.close());
}

TEST(RiffFile, ReadsWholeChunksOnly) {
  const TemporaryDirectory directory;
  const std::string name = directory.write("a.wav", wav().data("abcdef").claimDataSize(7).str());
  RiffFile riff(name.c_str());
  ASSERT_TRUE(riff.open());
  ChunkInfo wave;
  ChunkInfo data;
  char bytes[8] = {};
  ASSERT_TRUE(riff.descendRiff("WAVE", wave) && riff.descendChunk("data", data, wave));
  EXPECT_FALSE(riff.holdsChunk(data));
  EXPECT_TRUE(riff.readBytes(bytes, 2));
  EXPECT_STREQ(bytes, "ab");
  EXPECT_FALSE(riff.readChunk(data, bytes));
  EXPECT_TRUE(riff.close());
}

}  // namespace tavrel::test
