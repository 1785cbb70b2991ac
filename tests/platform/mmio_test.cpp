#include "platform/mmio.h"

#include <array>
#include <fstream>

#include "tests/support/bytes.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

class Mmio : public testing::Test {
 protected:
  void open(const std::string& content) {
    file_ = mmioOpenA(directory_.write("file", content).c_str(), nullptr, kMmioBuffered);
  }
  void TearDown() override { mmioClose(file_, 0); }
  [[nodiscard]] std::string read(std::uint32_t count) const {
    std::string bytes(count, '\0');
    bytes.resize(mmioRead(file_, bytes.data(), count));
    return bytes;
  }

  TemporaryDirectory directory_;
  MmioHandle file_ = nullptr;
};

TEST_F(Mmio, OpensNothingButRegularFiles) {
  open("");
  EXPECT_NE(file_, nullptr);
  EXPECT_EQ(mmioOpenA(directory_.path().c_str(), nullptr, kMmioBuffered), nullptr);
  EXPECT_EQ(mmioOpenA(nullptr, nullptr, kMmioBuffered), nullptr);
}

TEST_F(Mmio, ReadsOfAllLengthsFollowEachOther) {
  Bytes content;
  while (content.size() < 40000) {
    content.le16(content.size());
  }
  open(content);
  std::size_t position = 0;
  // Shorter than the buffer of 4,096 bytes, as long, longer, and past the end of the file.
  for (const std::uint32_t count :
       {1U, 4095U, 3U, 4092U, 4093U, 4096U, 8193U, 2U, 0U, 12000U, 5U, 9000U}) {
    SCOPED_TRACE(position);
    const std::string expected = content.substr(position, count);
    EXPECT_TRUE(read(count) == expected);
    position += expected.size();
    EXPECT_EQ(mmioBytesLeft(file_), content.size() - position);
  }
  // Back and forth, by the end of a chunk and its pad byte.
  for (const auto& [offset, size, next] :
       {std::array{39000U, 1U, 39002U}, {38997, 2, 38999}, {39000, 0xFFFFFFFF, 40000}, {0, 1, 2}}) {
    const ChunkInfo chunk{0, size, 0, offset, 0};
    mmioAscend(file_, &chunk, 0);
    EXPECT_EQ(mmioBytesLeft(file_), 40000 - next);
    EXPECT_EQ(read(2), content.substr(next, 2));
  }
}

TEST_F(Mmio, FindsNoChunkWhoseContentStartsAt4GiB) {
  const std::string header = Bytes().text("junk").le32(0xFFFFFFF8);  // up to 4 GiB
  const std::string path = directory_.write("file", header);
  std::filesystem::resize_file(path, std::uintmax_t{1} << 32U);
  std::ofstream(path, std::ios::binary | std::ios::app) << header;
  file_ = mmioOpenA(path.c_str(), nullptr, kMmioBuffered);
  ChunkInfo info;
  EXPECT_EQ(mmioDescend(file_, &info, nullptr, kMmioFindRiff), kMmioChunkNotFound);
}

TEST_F(Mmio, FindsNoFormThatIsTooShortForItsType) {
  open(Bytes().text("RIFF").le32(3).fill(4));
  ChunkInfo info;
  info.formType = 0;
  EXPECT_EQ(mmioDescend(file_, &info, nullptr, kMmioFindRiff), kMmioChunkNotFound);
}

}  // namespace tavrel::test
