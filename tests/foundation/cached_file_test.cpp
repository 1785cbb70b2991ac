// Files whose bytes are in memory already, as DiskFile and the mmio calls read them.
#include <cstring>

#include "foundation/disk_file.h"
#include "platform/file_cache.h"
#include "platform/mmio.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

class CachedFile : public testing::Test {
 protected:
  CachedFile() { setFileCache(&cache_); }
  ~CachedFile() override { setFileCache(nullptr); }
  void add(const std::string& path, std::string_view content) {
    FileCache::Entry entry{newBytes(content.size()), content.size()};
    std::memcpy(entry.bytes.get(), content.data(), content.size());
    cache_.add(path, std::move(entry));
  }
  static std::string wholeFile(const std::string& path) {
    DiskFile file(modeRead, path.c_str(), "");
    ByteBlock image;
    std::uint32_t size = 0;
    const bool complete = file.readImage(image, size) == DiskFile::WholeRead::complete;
    return complete ? std::string(image.get(), image.get() + size) : "fails";
  }

  TemporaryDirectory directory_;
  FileCache cache_;
};

TEST_F(CachedFile, IsReadInsteadOfTheDisk) {
  const std::string path = directory_.write("file", "on disk");
  EXPECT_EQ(wholeFile(path), "on disk");
  add(path, "");
  EXPECT_EQ(wholeFile(path), "");
  add(path, "in memory");
  EXPECT_EQ(wholeFile(path), "in memory");
  EXPECT_EQ(wholeFile(directory_.path("missing")), "fails");
  EXPECT_EQ(setFileCache(nullptr), &cache_);
  EXPECT_EQ(wholeFile(path), "on disk");
  setFileCache(&cache_);
  cache_.remove(path);
  EXPECT_EQ(wholeFile(path), "on disk");
}

TEST_F(CachedFile, IsReadLikeAFile) {
  const std::string path = directory_.path("not on disk");
  add(path, "0123456789");
  DiskFile file(modeRead, path.c_str(), "");
  ASSERT_TRUE(file.open());
  std::uint32_t size = 0;
  EXPECT_TRUE(file.getSize(size));
  EXPECT_EQ(size, 10U);
  const struct {
    std::uint32_t position, length;
    std::string expected;
  } rows[] = {{0, 10, "0123456789"}, {9, 1, "9"}, {2, 3, "234"}, {10, 0, ""}};
  for (const auto& [position, length, expected] : rows) {
    SCOPED_TRACE(position);
    std::string bytes(length, '\0');
    EXPECT_TRUE(file.seek(position));
    EXPECT_TRUE(file.read(bytes.data(), length));
    EXPECT_EQ(bytes, expected);
  }
  char byte = 0;
  EXPECT_FALSE(file.read(&byte, 1)) << "after the end";
  EXPECT_TRUE(file.close());
  ASSERT_TRUE(file.open());
  EXPECT_TRUE(file.seek(11));
  EXPECT_FALSE(file.read(&byte, 1));
  EXPECT_TRUE(file.close());
}

TEST_F(CachedFile, ClosedObjectReadsAndWritesTheDiskAgain) {
  const std::string path = directory_.write("file", "on disk");
  add(path, "in memory");
  DiskFile file(modeRead, path.c_str(), "");
  ASSERT_TRUE(file.open());
  ASSERT_TRUE(file.close());
  cache_.remove(path);
  char byte = 0;
  ASSERT_TRUE(file.open());
  EXPECT_TRUE(file.read(&byte, 1));
  EXPECT_EQ(byte, 'o');
  ASSERT_TRUE(file.close());
  add(path, "in memory");
  DiskFile output(modeWrite, path.c_str(), "");
  EXPECT_TRUE(output.writeWhole("written", 7));
  EXPECT_EQ(directory_.read("file"), "written");
}

TEST_F(CachedFile, MmioCallsReadItToo) {
  const std::string path = directory_.path("not on disk");
  const std::string content = std::string(5000, 'a') + "RIFF";  // longer than the read buffer
  add(path, content);
  const MmioHandle file = mmioOpenA(path.c_str(), nullptr, kMmioBuffered);
  ASSERT_NE(file, nullptr);
  std::string bytes(6000, '\0');
  bytes.resize(mmioRead(file, bytes.data(), 6000));
  EXPECT_TRUE(bytes == content);
  const ChunkInfo chunk{0, 2, 0, 5000, 0};
  mmioAscend(file, &chunk, 0);
  EXPECT_EQ(mmioRead(file, bytes.data(), 6000), 2U);
  EXPECT_EQ(bytes.substr(0, 2), "FF");
  mmioClose(file, 0);
}

}  // namespace tavrel::test
