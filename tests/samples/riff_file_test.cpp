#include "samples/riff_file.h"

#include <gtest/gtest.h>

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(RiffFile, StepsForwardThroughFormsListsAndChunks) {
  const std::string other = wav().form("OTHR").chunk("RIFF", "WAVE");
  const std::string list = wav().chunk("LIST", Bytes().text("INFOISFT").le32(0));
  const TemporaryDirectory directory;
  RiffFile riff(directory.write("a.wav", other + list).c_str());
  ChunkInfo info;
  char text[] = "12345";
  EXPECT_TRUE(!riff.close() && riff.open() && !riff.open() && riff.isOpen);
  EXPECT_TRUE(riff.hasRiffForm("OTHR", info) && riff.descendRiff("WAVE", info));
  EXPECT_TRUE(riff.descendList("INFO", info) && riff.descendNamedChunk("ISFT", info));
  RiffFile::fourCcToText(info.chunkId, text);
  EXPECT_STREQ(text, "ISFT");
  EXPECT_FALSE(RiffFile::fourCcEquals("ISFt", info.chunkId));
  EXPECT_FALSE(riff.descendChunkById(info.chunkId, info) || riff.readBytes(text, 1)) << "the end";
  EXPECT_TRUE(riff.close() && !riff.isOpen && !riff.close());
}

}  // namespace tavrel::test
