// Files whose bytes are in memory already, as DiskFile and the mmio calls read them.
#include "foundation/disk_file.h"
#include "platform/file_cache.h"
#include "platform/mmio.h"
#include "tests/support/all.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

class CachedFile : public testing::Test {
 protected:
  CachedFile() { setFileCache(&cache_); }
  ~CachedFile() override { setFileCache(nullptr); }
  void add(std::string_view content) { cache_.add(path_, {blockOf(content), content.size()}); }
  /// Reads the file whole, always with the same object.
  std::string wholeFile() {
    ByteBlock image;
    std::uint32_t size = 0;
    const bool complete = file_.readImage(image, size) == DiskFile::WholeRead::complete;
    return complete ? std::string(image.get(), image.get() + size) : "fails";
  }

  const TemporaryDirectory directory_;
  const std::string path_ = directory_.write("file", "on disk");
  FileCache cache_;
  DiskFile file_{modeRead, path_.c_str(), ""};
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
  EXPECT_TRUE(DiskFile(modeWrite, path_.c_str(), "").writeWhole("written", 7));
  EXPECT_EQ(directory_.read("file"), "written");
  cache_.remove(path_);
  EXPECT_EQ(wholeFile(), "written");
}

TEST_F(CachedFile, IsReadLikeAFile) {
  add("0123456789");
  std::uint32_t size = 0;
  EXPECT_TRUE(all({file_.open(), file_.read(bytes_, 10), file_.getSize(size)}));
  EXPECT_STREQ(bytes_, "0123456789");
  EXPECT_EQ(size, 10U);
  EXPECT_TRUE(all({file_.seek(9), file_.read(bytes_, 1), file_.seek(2), file_.read(bytes_ + 1, 3),
                   file_.seek(10), file_.read(bytes_, 0), !file_.read(bytes_, 1), file_.close(),
                   file_.open(), file_.seek(11), !file_.read(bytes_, 1), file_.close()}));
  EXPECT_STREQ(bytes_, "9234456789");
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
