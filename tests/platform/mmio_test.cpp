#include "platform/mmio.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

namespace {

MmioHandle open(const std::string& path) { return mmioOpenA(path.c_str(), nullptr, kMmioBuffered); }

}  // namespace

TEST(Mmio, OpensRegularFilesOnly) {
  const TemporaryDirectory directory;
  EXPECT_EQ(open(directory.path("missing")), nullptr);
  EXPECT_EQ(open(directory.path()), nullptr);
  EXPECT_EQ(mmioOpenA(nullptr, nullptr, kMmioBuffered), nullptr);
}

TEST(Mmio, ReadsAcrossItsBuffer) {
  const TemporaryDirectory directory;
  std::string content(20000, '\0');
  for (std::size_t i = 0; i < content.size(); ++i) {
    content[i] = static_cast<char>(i * 7 + i / 256);
  }
  for (const std::uint32_t piece : {1U, 999U, 4095U, 4096U, 4097U, 30000U}) {
    const MmioHandle file = open(directory.write("file", content));
    std::string all;
    std::string part(piece, '\0');
    for (std::uint32_t came = piece; came == piece; all.append(part, 0, came)) {
      EXPECT_EQ(mmioBytesLeft(file), content.size() - all.size());
      came = mmioRead(file, part.data(), piece);
    }
    EXPECT_TRUE(all == content) << piece;
    EXPECT_EQ(mmioClose(file, 0), 0U);
  }
}

TEST(Mmio, WalksAMillionEmptyChunks) {
  const TemporaryDirectory directory;
  std::string content;
  for (int i = 0; i < 1000000; ++i) {
    content.append("none\0\0\0\0", 8);
  }
  const MmioHandle file = open(directory.write("file", content + "last" + std::string(4, '\0')));
  ChunkInfo info;
  info.chunkId = 0x7473616C;  // "last"
  EXPECT_EQ(mmioDescend(file, &info, nullptr, kMmioFindChunk), 0U);
  EXPECT_EQ(info.dataOffset, 8000008U);
  EXPECT_EQ(mmioDescend(file, &info, nullptr, kMmioFindChunk), kMmioChunkNotFound);
  EXPECT_EQ(mmioClose(file, 0), 0U);
}

}  // namespace tavrel::test
