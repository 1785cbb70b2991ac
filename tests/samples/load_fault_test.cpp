// Why sounds aren't loaded, and the chunks that a program finds in them.
#include <gtest/gtest.h>

#include "samples/aiff_file.h"
#include "samples/wave_file.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(LoadFault, OfWavFiles) {
  const TemporaryDirectory directory;
  const WavBuilder good = wav().fmt(mono, 8, 22050).data("abcd");
  const struct {
    WaveFault fault;
    std::string content;
  } rows[] = {
      {WaveFault::none, good},
      {WaveFault::noForm, ""},
      {WaveFault::noForm, WavBuilder(good).form("AVI ")},
      {WaveFault::noFormat, wav().data("abcd").fmt(mono, 8, 22050).str().substr(0, 30)},
      {WaveFault::formatCut, good.substr(0, 30)},
      {WaveFault::noData, wav().fmt(mono, 8, 22050)},
      {WaveFault::dataCut, good.substr(0, good.size() - 1)},
  };
  for (const auto& [fault, content] : rows) {
    SCOPED_TRACE(static_cast<int>(fault));
    WaveFile file(directory.write("a.wave", content).c_str());
    directory.write("a.wav", content);
    EXPECT_EQ(file.openedName(), directory.path("a.wav"));
    EXPECT_EQ(file.load(), fault == WaveFault::none);
    EXPECT_EQ(file.fault(), fault);
  }
  WaveFile file(directory.path("missing").c_str());
  EXPECT_FALSE(file.load());
  EXPECT_EQ(file.fault(), WaveFault::cannotOpen);
}

TEST(LoadFault, OfAiffFiles) {
  const TemporaryDirectory directory;
  const auto good = [] { return aiff().comm(mono, 4, 8).ssnd("abcd").inst({}).mark({{1, 2}}); };
  const struct {
    AiffFault fault;
    const char* damagedChunk;
    std::string content;
  } rows[] = {
      {AiffFault::none, "", good()},
      {AiffFault::noForm, "", ""},
      {AiffFault::noForm, "", good().form("AIFC")},
      {AiffFault::noCommon, "", aiff().ssnd("abcd")},
      {AiffFault::noSound, "", aiff().comm(mono, 4, 8)},
      {AiffFault::damaged, "COMM", good().claimSize("COMM", 17)},
      {AiffFault::damaged, "SSND", aiff().comm(mono, 5, 8).ssnd("abcd")},
      {AiffFault::damaged, "INST", good().claimSize("INST", 19)},
      {AiffFault::damaged, "MARK", good().claimSize("MARK", 8)},
  };
  for (const auto& [fault, damagedChunk, content] : rows) {
    SCOPED_TRACE(testing::Message() << static_cast<int>(fault) << ' ' << damagedChunk);
    AiffFile file(directory.write("a.aif", content).c_str());
    testing::internal::CaptureStderr();
    EXPECT_EQ(file.load(), fault == AiffFault::none);
    testing::internal::GetCapturedStderr();
    EXPECT_EQ(file.fault(), fault);
    IffFile::IdText text{};
    IffFile::idToText(file.damagedChunk(), text.data());
    EXPECT_STREQ(text.data(), damagedChunk);
  }
}

TEST(LoadFault, UnreadableAiffFile) {
  AiffFile file("missing/a.aif");
  testing::internal::CaptureStderr();
  EXPECT_FALSE(file.load());
  testing::internal::GetCapturedStderr();
  EXPECT_EQ(file.fault(), AiffFault::cannotRead);
}

TEST(ChunkLists, HoldAllChunksInFileOrder) {
  const TemporaryDirectory directory;
  AiffFile aiffFile(
      directory.write("a.aif", aiff().comm(mono, 0, 8).ssnd("").chunk("none", "")).c_str());
  ASSERT_TRUE(aiffFile.load());
  std::string sizes;
  for (const IffChunk& chunk : aiffFile.chunkList()) {
    sizes += std::to_string(chunk.size) + ' ';
  }
  EXPECT_EQ(sizes, "18 8 0 ");

  RiffFile riff(directory.write("a.wav", wav().chunk("LIST", "abc").data("1234") + "more").c_str());
  ASSERT_TRUE(riff.open());
  ChunkInfo form;
  ChunkInfo chunk;
  ASSERT_TRUE(riff.descendRiff("WAVE", form));
  std::string found;
  while (riff.descendNext(chunk, form)) {
    std::array<char, 4 + 1> text{};
    RiffFile::fourCcToText(chunk.chunkId, text.data());
    found += text.data() + std::to_string(chunk.chunkSize) + ' ';
    ASSERT_TRUE(riff.ascend(chunk));
  }
  EXPECT_EQ(found, "LIST3 data4 ");
  EXPECT_TRUE(riff.close());
}

}  // namespace tavrel::test
