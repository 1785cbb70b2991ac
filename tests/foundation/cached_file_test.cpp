// Files whose bytes are in memory already, as DiskFile and the mmio calls read them.
#include <gmock/gmock.h>

#include <array>

#include "foundation/disk_file.h"
#include "platform/file_cache.h"
#include "platform/mmio.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

class CachedFile : public testing::Test {
 protected:
  CachedFile() { setFileCache(&cache_); }
  ~CachedFile() override { setFileCache(nullptr); }
  void add(std::string_view content) { cache_.add(path_, {blockOf(content), content.size()}); }
  [[nodiscard]] std::string wholeFile() const {
    DiskFile file(modeRead, path_.c_str(), "");
    ByteBlock image;
    std::uint32_t size = 0;
    const bool complete = file.readImage(image, size) == DiskFile::WholeRead::complete;
    return complete ? std::string(image.get(), image.get() + size) : "fails";
  }

  const TemporaryDirectory directory_;
  const std::string path_ = directory_.write("file", "on disk");
  FileCache cache_;
  char bytes_[11] = "..........";
};

TEST_F(CachedFile, IsReadInsteadOfTheDisk) {
  EXPECT_EQ(wholeFile(), "on disk");
  add("");
  EXPECT_EQ(wholeFile(), "");
  add("in memory");
  EXPECT_EQ(wholeFile(), "in memory");
  EXPECT_EQ(setFileCache(nullptr), &cache_);
  EXPECT_EQ(wholeFile(), "on disk");
  setFileCache(&cache_);
  cache_.remove(path_);
  EXPECT_EQ(wholeFile(), "on disk");
}

TEST_F(CachedFile, IsReadLikeAFile) {
  add("0123456789");
  DiskFile file(modeRead, path_.c_str(), "");
  std::uint32_t size = 0;
  EXPECT_THAT((std::array{file.open(), file.getSize(size), file.read(bytes_, 10)}),
              testing::Each(true));
  EXPECT_STREQ(bytes_, "0123456789");
  EXPECT_EQ(size, 10U);
  EXPECT_THAT(
      (std::array{file.seek(9), file.read(bytes_, 1), file.seek(2), file.read(bytes_ + 1, 3),
                  file.seek(10), file.read(bytes_, 0), !file.read(bytes_, 1), file.close(),
                  file.open(), file.seek(11), !file.read(bytes_, 1), file.close()}),
      testing::Each(true));
  EXPECT_STREQ(bytes_, "9234456789");
}

TEST_F(CachedFile, ClosedObjectReadsAndWritesTheDiskAgain) {
  add("in memory");
  DiskFile file(modeRead, path_.c_str(), "");
  ASSERT_TRUE(file.open() && file.close());
  cache_.remove(path_);
  EXPECT_TRUE(file.open() && file.read(bytes_, 7) && file.close());
  EXPECT_STREQ(bytes_, "on disk...");
  add("in memory");
  EXPECT_TRUE(DiskFile(modeWrite, path_.c_str(), "").writeWhole("written", 7));
  EXPECT_EQ(directory_.read("file"), "written");
}

TEST_F(CachedFile, MmioCallsReadItToo) {
  const std::string content = std::string(5000, 'a') + "RIFF";  // longer than the read buffer
  add(content);
  const MmioHandle file = mmioOpenA(path_.c_str(), nullptr, kMmioBuffered);
  ASSERT_NE(file, nullptr);
  std::string bytes(6000, '\0');
  bytes.resize(mmioRead(file, bytes.data(), 6000));
  EXPECT_TRUE(bytes == content);
  const ChunkInfo chunk{0, 2, 0, 5000, 0};
  mmioAscend(file, &chunk, 0);
  EXPECT_EQ(mmioRead(file, bytes_, 6000), 2U);
  EXPECT_STREQ(bytes_, "FF........");
  mmioClose(file, 0);
}

}  // namespace tavrel::test
