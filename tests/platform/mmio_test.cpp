#include "platform/mmio.h"

#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

class Mmio : public testing::Test {
 protected:
  void open(const std::string& content) {
    mmioClose(file_, 0);
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
  const auto chunk = [](std::uint32_t size, std::string_view content) {
    return Bytes().text("data").le32(size).text(content).str();
  };
  const auto list = [](std::uint32_t size) {
    return Bytes().text("LIST").le32(size).text("WAVEnext").str();
  };
  const std::string form = wav().chunk("data", "ab");
  const struct {
    const char* name;
    std::string content;
    std::uint32_t flags, dataOffset;  // offset 0: not found
    std::string next = "";            // bytes at the new position
  } rows[] = {
      {"RIFF form", form, kMmioFindRiff, 8, "data"},
      {"RIFF form after a chunk of odd size", chunk(3, "abc|") + form, kMmioFindRiff, 12 + 8,
       "data"},
      {"another RIFF form", wav().form("WAVe"), kMmioFindRiff, 0},
      {"LIST form is no RIFF form", list(4), kMmioFindRiff, 0},
      {"LIST form", list(4), kMmioFindList, 8, "next"},
      {"LIST form too short for its type", list(3), kMmioFindList, 0},
      {"LIST form of size 0", list(0), kMmioFindList, 0},
      {"RIFF form is no LIST form", form, kMmioFindList, 0},
      {"form type cut off", form.substr(0, 11), kMmioFindRiff, 0},
      {"chunk whose size passes the end", chunk(0xFFFFFFFF, "ab"), kMmioFindChunk, 8, "ab"},
      {"chunk after one whose size passes the end", list(0xFFFFFFFF) + chunk(0, ""), kMmioFindChunk,
       0},
      {"header that ends with the file", chunk(0, ""), kMmioFindChunk, 8},
      {"header cut off", chunk(0, "").substr(0, 7), kMmioFindChunk, 0},
      {"another id", Bytes().text("datA").le32(0), kMmioFindChunk, 0},
  };
  for (const auto& [name, content, flags, dataOffset, next] : rows) {
    SCOPED_TRACE(name);
    open(content);
    ChunkInfo info{0x61746164, 7, 0x45564157, 7, 7};  // "data" and "WAVE", first character lowest
    const bool isFound = mmioDescend(file_, &info, nullptr, flags) == 0;
    EXPECT_EQ(isFound, dataOffset != 0);
    EXPECT_EQ(info.dataOffset, isFound ? dataOffset : 7);
    EXPECT_EQ(isFound ? read(4) : "", next);
  }
}

}  // namespace tavrel::test
