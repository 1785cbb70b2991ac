#include "samples/riff_file.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_directory.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {

namespace {

class RiffFileTest : public testing::Test {
 protected:
  /// Opens a file of this content, and finds `id` in its WAVE form.
  bool finds(const char* id, const std::string& content) {
    riff.setName(directory.write("a.wav", content).c_str());
    return riff.open() && riff.descendRiff("WAVE", wave) && riff.descendChunk(id, info, wave);
  }
  void TearDown() override { riff.close(); }

  TemporaryDirectory directory;
  RiffFile riff{""};
  ChunkInfo wave;
  ChunkInfo info;
};

}  // namespace

TEST_F(RiffFileTest, OpensAndClosesOnce) {
  riff.setName(directory.write("a.wav", "").c_str());
  EXPECT_FALSE(riff.close());
  EXPECT_TRUE(riff.open());
  EXPECT_FALSE(riff.open());
  EXPECT_TRUE(riff.isOpen);
  EXPECT_TRUE(riff.close());
  EXPECT_FALSE(riff.isOpen || riff.handle != nullptr || riff.close());
  EXPECT_FALSE(RiffFile(directory.path("missing").c_str()).open());
}

TEST_F(RiffFileTest, FindsEveryKindOfChunk) {
  const std::string list = Bytes().text("INFO").text("ISFT").le32(4).text("abcd");
  const std::string other = wav().form("OTHR").chunk("LIST", list).str();
  const std::string content = other + wav().chunk("odd ", "abc").chunk("LIST", list).str();
  ASSERT_TRUE(finds("odd ", content));
  EXPECT_EQ(wave.dataOffset, other.size() + 8);
  EXPECT_EQ(info.dataOffset, wave.dataOffset + 4 + 8);
  EXPECT_TRUE(riff.ascend(info));
  ASSERT_TRUE(riff.descendList("INFO", info));
  EXPECT_TRUE(RiffFile::fourCcEquals("INFO", info.formType));
  EXPECT_FALSE(RiffFile::fourCcEquals("INF ", info.formType));
  ASSERT_TRUE(riff.descendNamedChunk("ISFT", info));
  char text[5] = {};
  RiffFile::fourCcToText(info.chunkId, text);
  EXPECT_STREQ(text, "ISFT");
  EXPECT_FALSE(riff.descendChunkById(info.chunkId, info)) << "a search goes forward";
  EXPECT_TRUE(riff.close());

  ASSERT_TRUE(riff.open());
  EXPECT_TRUE(riff.hasRiffForm("OTHR", info));
  EXPECT_TRUE(riff.hasRiffForm("WAVE", info));
  EXPECT_FALSE(riff.hasRiffForm("WAVE", info)) << "the position is behind the chunk";
}

TEST_F(RiffFileTest, StaysInsideParentAndFile) {
  const auto content = [] { return wav().chunk("odd ", "abc").chunk("fact", "12345678"); };
  // Form type, the odd chunk with its pad, the header of "fact".
  const std::uint32_t enough = 4 + (8 + 4) + 8;
  for (const auto& [claim, found] : {std::pair{enough, true},
                                     {enough - 1, false},
                                     {4U, false},
                                     {0U, false},
                                     {0xFFFFFFFFU, true}}) {
    EXPECT_EQ(finds("fact", content().claimFormSize(claim).str()), found) << claim;
    riff.close();
  }
  for (const std::uint32_t claim : {5U, 0x7FFFFFFFU, 0xFFFFFFF0U, 0xFFFFFFFFU}) {
    EXPECT_FALSE(finds("fact", content().claimSize("odd ", claim).str())) << claim;
    riff.close();
  }
}

TEST_F(RiffFileTest, ReadsWholeChunksOnly) {
  ASSERT_TRUE(finds("data", wav().data("abcdef").claimDataSize(7).str()));
  char bytes[8] = {};
  EXPECT_FALSE(riff.holdsChunk(info));
  EXPECT_TRUE(riff.readBytes(bytes, 2));
  EXPECT_STREQ(bytes, "ab");
  EXPECT_FALSE(riff.readChunk(info, bytes));
}

}  // namespace tavrel::test
