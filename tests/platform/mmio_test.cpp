#include "platform/mmio.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/support/temporary_directory.h"
#include "tests/support/wav_builder.h"

namespace tavrel::test {

namespace {

constexpr std::uint32_t kFact = 0x74636166;  // "fact"
constexpr std::uint32_t kWave = 0x45564157;  // "WAVE"
constexpr std::uint32_t kBack = 0x6B636162;  // "back"

using OpenFile = std::unique_ptr<MmioFile, void (*)(MmioHandle)>;

OpenFile open(const std::string& path) {
  return {mmioOpenA(path.c_str(), nullptr, kMmioBuffered),
          [](MmioHandle handle) { EXPECT_EQ(mmioClose(handle, 0), 0U); }};
}

OpenFile opened(const TemporaryDirectory& directory, const std::string& content) {
  return open(directory.write("file", content));
}

bool findRiff(const OpenFile& file, ChunkInfo& info) {
  info = {};
  info.formType = kWave;
  return mmioDescend(file.get(), &info, nullptr, kMmioFindRiff) == 0;
}

bool findChunk(const OpenFile& file, std::uint32_t id, ChunkInfo& info, const ChunkInfo* parent) {
  info = {};
  info.chunkId = id;
  return mmioDescend(file.get(), &info, parent, kMmioFindChunk) == 0;
}

}  // namespace

TEST(Mmio, OpensRegularFilesOnly) {
  const TemporaryDirectory directory;
  EXPECT_EQ(open(directory.path("missing")), nullptr);
  EXPECT_EQ(open(directory.path()), nullptr);
  EXPECT_EQ(mmioOpenA(nullptr, nullptr, kMmioBuffered), nullptr);
  EXPECT_NE(opened(directory, ""), nullptr);
}

TEST(Mmio, ReadsAcrossItsBuffer) {
  const TemporaryDirectory directory;
  std::string content(20000, '\0');
  for (std::size_t i = 0; i < content.size(); ++i) {
    content[i] = static_cast<char>(i * 7 + i / 256);
  }
  for (const std::uint32_t piece : {1U, 999U, 4095U, 4096U, 4097U, 30000U}) {
    const OpenFile file = opened(directory, content);
    std::string all;
    std::string part(piece, '\0');
    for (std::uint32_t came = piece; came == piece; all.append(part, 0, came)) {
      EXPECT_EQ(mmioBytesLeft(file.get()), content.size() - all.size());
      came = mmioRead(file.get(), part.data(), piece);
    }
    EXPECT_TRUE(all == content) << piece;
  }
}

TEST(Mmio, DescribesTheChunksItFinds) {
  const TemporaryDirectory directory;
  const std::string content = wav().chunk("odd ", "abc").chunk("fact", "12345678").str();
  const OpenFile file = opened(directory, "skip" + Bytes().le32(2).text("--").str() + content);
  ChunkInfo riff;
  ASSERT_TRUE(findRiff(file, riff));
  EXPECT_EQ(riff.chunkSize, content.size() - 8);
  EXPECT_EQ(riff.formType, kWave);
  EXPECT_EQ(riff.dataOffset, 10U + 8);
  ChunkInfo fact;
  ASSERT_TRUE(findChunk(file, kFact, fact, &riff));
  EXPECT_EQ(fact.chunkSize, 8U);
  EXPECT_EQ(fact.dataOffset, riff.dataOffset + 4 + (8 + 4) + 8);
  char first = 0;
  EXPECT_EQ(mmioRead(file.get(), &first, 1), 1U);
  EXPECT_EQ(first, '1');
}

TEST(Mmio, StaysInsideTheParent) {
  const TemporaryDirectory directory;
  const std::string whole = wav().chunk("odd ", "abc").chunk("fact", "12345678").str();
  // Form type, the odd chunk with its pad, the header of "fact".
  const std::uint32_t enough = 4 + (8 + 4) + 8;
  for (const auto& [claim, found] : {std::pair{enough, true},
                                     {enough - 1, false},
                                     {4U, false},
                                     {0U, false},
                                     {0xFFFFFFFFU, true}}) {
    const std::string content =
        wav().chunk("odd ", "abc").chunk("fact", "12345678").claimFormSize(claim).str();
    const OpenFile file = opened(directory, content);
    ChunkInfo riff;
    ChunkInfo fact;
    EXPECT_EQ(findRiff(file, riff) && findChunk(file, kFact, fact, &riff), found) << claim;
  }
}

TEST(Mmio, ChunkClaimingMoreThanTheFileEndsTheWalk) {
  const TemporaryDirectory directory;
  for (const std::uint32_t claim : {4U, 0x7FFFFFFFU, 0xFFFFFFF0U, 0xFFFFFFFFU}) {
    const OpenFile file =
        opened(directory, wav().chunk("big ", "").chunk("fact", "").claimSize("big ", claim).str());
    ChunkInfo riff;
    ChunkInfo fact;
    ASSERT_TRUE(findRiff(file, riff));
    EXPECT_FALSE(findChunk(file, kFact, fact, &riff)) << claim;
    EXPECT_EQ(mmioAscend(file.get(), &riff, 0), 0U);
    EXPECT_EQ(mmioBytesLeft(file.get()), 0U);
  }
}

TEST(Mmio, AscendsBehindThePad) {
  const TemporaryDirectory directory;
  const OpenFile file =
      opened(directory, wav().chunk("fact", "abc").chunk("back", "").withoutLastPad().str());
  ChunkInfo riff;
  ChunkInfo fact;
  ChunkInfo back;
  ASSERT_TRUE(findRiff(file, riff));
  ASSERT_TRUE(findChunk(file, kFact, fact, &riff));
  EXPECT_EQ(mmioAscend(file.get(), &fact, 0), 0U);
  EXPECT_TRUE(findChunk(file, kBack, back, &riff));
}

TEST(Mmio, WalksAMillionEmptyChunks) {
  const TemporaryDirectory directory;
  std::string content;
  for (int i = 0; i < 1000000; ++i) {
    content.append("none\0\0\0\0", 8);
  }
  const OpenFile file = opened(directory, content + "fact" + std::string(4, '\0'));
  ChunkInfo fact;
  EXPECT_TRUE(findChunk(file, kFact, fact, nullptr));
  EXPECT_FALSE(findChunk(file, kFact, fact, nullptr));
}

}  // namespace tavrel::test
