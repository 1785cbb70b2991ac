#include "platform/mmio.h"

#include "tests/support/bytes.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(Mmio, WalksAndReadsAcrossItsBuffer) {
  const TemporaryDirectory directory;
  Bytes content = Bytes().text("none").le32(5001).fill(5002).text("last").le32(0);
  for (std::uint32_t number = 0; content.size() < 20000; ++number) {
    content.le32(number);
  }
  const MmioHandle file = mmioOpenA(directory.write("a", content).c_str(), nullptr, kMmioBuffered);
  ChunkInfo info{0x7473616C};  // "last"
  EXPECT_EQ(mmioDescend(file, &info, nullptr, kMmioFindChunk), 0U);
  std::string all = content.str().substr(0, info.dataOffset);
  for (const std::uint32_t count : {1U, 4095U, 1U, 4096U, 4097U, 999U, 20000U}) {
    std::string piece(count, '\0');
    const std::uint32_t came = mmioRead(file, piece.data(), count);
    all += piece.substr(0, came);
    EXPECT_EQ(mmioBytesLeft(file), content.size() - all.size());
  }
  EXPECT_TRUE(all == content.str() && mmioClose(file, 0) == 0);
}

}  // namespace tavrel::test
