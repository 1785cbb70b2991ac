#include "samples/riff_file.h"

#include "tests/support/all.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(RiffFile, StepsForwardThroughFormsListsAndChunks) {
  const std::string other = wav().form("OTHR").chunk("RIFF", "WAVE");
  const std::string list = wav().chunk("LIST", Bytes().text("INFOISFT").le32(3).text("abc"));
  const std::string last = Bytes().text("none").le32(0);
  const TemporaryDirectory directory;
  RiffFile riff(directory.write("a.wav", other + list + last).c_str());
  ChunkInfo wave;
  ChunkInfo info;
  char text[10] = "12345";
  EXPECT_TRUE(all({!riff.close(), !riff.descendRiff("WAVE", info), !riff.ascend(info),
                   !riff.holdsChunk({}), !riff.readBytes(nullptr, 0), !riff.isOpen}));
  EXPECT_TRUE(all({riff.open(), !riff.open(), riff.isOpen, riff.hasRiffForm("OTHR", info),
                   riff.descendRiff("WAVE", wave), riff.descendList("INFO", info),
                   riff.descendNext(info, wave), !riff.holdsChunk({0, 13}),
                   riff.readChunk(info, text), riff.ascend(info), !riff.descendNext(wave, wave),
                   riff.descendNamedChunk("none", wave)}));
  EXPECT_STREQ(text, "abc45");
  RiffFile::fourCcToText(info.chunkId, text);
  EXPECT_STREQ(text, "ISFT");
  EXPECT_TRUE(all(
      {RiffFile::fourCcEquals("ISFT", info.chunkId), !RiffFile::fourCcEquals("ISFt", info.chunkId),
       !riff.readBytes(text, 1) /* nothing is left */, !riff.descendChunkById(info.chunkId, info),
       !riff.hasRiffForm("OTHR", info), riff.close(), !riff.isOpen}));
}

}  // namespace tavrel::test
