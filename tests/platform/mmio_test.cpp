#include "platform/mmio.h"

#include <array>

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
       {std::array{39000U, 1U, 39002U}, {38997, 2, 38999}, {39000, 0xFFFFFFFF, 40000}}) {
    const ChunkInfo chunk{0, size, 0, offset, 0};
    mmioAscend(file_, &chunk, 0);
    EXPECT_EQ(mmioBytesLeft(file_), 40000 - next);
    EXPECT_EQ(read(2), content.substr(next, 2));
  }
}

TEST_F(Mmio, DescendsIntoTheNextChunkThatIsWhole) {
  open(Bytes().text("LIST").le32(3).text("WAV|LIST").le32(4).text("WAVELIST").le32(4).text("WAV"));
  const ChunkInfo start;
  const struct {
    const char* name;
    std::uint32_t id, flags, parentSize, foundAt;  // 0: not found
  } rows[] = {
      {"the first form that its chunk has room for", 0, kMmioFindList, 40, 20},
      {"parent ends with the form type", 0, kMmioFindList, 24, 20},
      {"parent ends in the form type", 0, kMmioFindList, 23, 0},
      {"LIST is no RIFF form", 0, kMmioFindRiff, 40, 0},
      {"chunk at the start", 0x5453494C, kMmioFindChunk, 8, 8},  // "LIST"
      {"parent ends in the header", 0x5453494C, kMmioFindChunk, 7, 0},
      {"another id", 0x5453494D, kMmioFindChunk, 40, 0},
  };
  for (const auto& [name, id, flags, parentSize, foundAt] : rows) {
    SCOPED_TRACE(name);
    const ChunkInfo parent{0, parentSize, 0, 0, 0};
    ChunkInfo info{id, 7, 0x45564157, 0, 7};  // "WAVE"
    mmioAscend(file_, &start, 0);
    EXPECT_EQ(mmioDescend(file_, &info, &parent, flags) == 0, foundAt != 0);
    EXPECT_EQ(info.dataOffset, foundAt);
  }
}

}  // namespace tavrel::test
