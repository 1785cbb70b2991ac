#include "foundation/disk_file.h"

#include <array>
#include <sstream>

#include "platform/file_cache.h"
#include "tests/support/all.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

class DiskFileTest : public testing::Test {
 protected:
  const TemporaryDirectory directory_;
  const std::string name_ = directory_.write("some.bin", "abc");
  DiskFile input_{modeRead, "some.bin", directory_.path("").c_str()};
  DiskFile output_{modeWrite, name_.c_str(), ""};
  DiskFile log_{modeAppend, name_.c_str(), ""};
  std::array<char, 6> bytes_{".."};
  ByteBlock block_;
  std::uint32_t size_ = 99;
};

TEST_F(DiskFileTest, EachErrorCodeHasItsText) {
  DiskFile file;
  EXPECT_EQ(file.errorText(), nullptr);
  EXPECT_FALSE(file.reportError());
  for (const std::string row :
       {"Read Error (%s)", "Write Error (%s)", "Unable to Open \"%s\" for Writing",
        "File \"%s\" Not Found", "Unable to Allocate Memory (%s)", "File \"%s\" is Already Open",
        "Unable to Get File Name", "Unable to Open \"%s\" For Write Appension",
        "Bad Value for Mode (%s)", "File \"%s\" is Already Closed",
        "Can't Write \"%s\", File is Not Open", "Can't Perform Operation, File \"%s\" is Not Open",
        "Can't Perform Operation, File \"%s\" is Open", "Can't Read \"%s\" into NULL Buffer",
        "Can't Seek in Append Mode (%s)", "Seek Error (%s)"}) {
    ++file.error;
    EXPECT_EQ(file.errorText(), "File System Error: " + row);
  }
  file.error = 17;
  EXPECT_EQ(file.errorText(), nullptr);
}

TEST_F(DiskFileTest, OperationsCheckTheStateOfTheFileInOrder) {
  static ByteBlock block;
  static std::uint32_t number;
  const std::array states{"reading", "writing", "appending", "in an unknown mode", "closed"};
  const struct {
    const char* name;
    bool (*call)(DiskFile&);
    std::array<std::uint32_t, 5> codes;  // one for each of the states, 0 for success
  } rows[] = {
      {"open", [](DiskFile& f) { return f.open(); }, {6, 6, 6, 6, 9}},
      {"setName", [](DiskFile& f) { return f.setName("a"); }, {13, 13, 13, 13, 0}},
      {"setPath", [](DiskFile& f) { return f.setPath(nullptr); }, {13, 13, 13, 13, 5}},
      {"setMode", [](DiskFile& f) { return f.setMode(7); }, {13, 13, 13, 13, 0}},
      {"read", [](DiskFile& f) { return f.read(&number, 1); }, {0, 9, 9, 9, 12}},
      {"read to null", [](DiskFile& f) { return f.read(nullptr, 1); }, {14, 9, 9, 9, 12}},
      {"readAll", [](DiskFile& f) { return f.readAll(block, number); }, {0, 9, 9, 9, 12}},
      {"readRange", [](DiskFile& f) { return f.readRange(nullptr, 0, 1); }, {14, 9, 9, 9, 12}},
      {"write", [](DiskFile& f) { return f.write("a", 1); }, {9, 0, 0, 9, 11}},
      {"seek", [](DiskFile& f) { return f.seek(0); }, {0, 0, 15, 9, 12}},
      {"getSize", [](DiskFile& f) { return f.getSize(number); }, {0, 0, 0, 9, 12}},
      {"close", [](DiskFile& f) { return f.close(); }, {0, 0, 0, 9, 10}},
  };
  for (const auto& row : rows) {
    for (std::uint32_t state = 0; state < states.size(); ++state) {
      SCOPED_TRACE(std::string(row.name) + " while " + states[state]);
      DiskFile file(state % 3, directory_.write("some.bin", "abc").c_str(), nullptr);
      EXPECT_EQ(state < 4 && file.open(), state < 4);
      file.mode = state;
      EXPECT_EQ(row.call(file) ? 0 : file.error, row.codes[state]);
    }
  }
}

TEST_F(DiskFileTest, OpensNoDirectoriesAndNothingWithoutAName) {
  for (const auto& [mode, code] : {std::pair{modeRead, 4U}, {modeWrite, 3U}, {modeAppend, 8U}}) {
    DiskFile folder(mode, directory_.path().c_str(), nullptr);
    DiskFile nameless(mode, nullptr, nullptr);
    EXPECT_EQ(DiskFile(mode, "a", nullptr).error, 0U);
    EXPECT_FALSE(folder.open());
    EXPECT_EQ(folder.error, code);
    EXPECT_FALSE(nameless.open());
    EXPECT_EQ(nameless.error, 5U);
  }
}

TEST_F(DiskFileTest, DevicesOpenButHaveNoSizeAndCannotBeRead) {
  if (std::filesystem::path::preferred_separator != '/') {
    GTEST_SKIP() << "this host has no such devices";
  }
  DiskFile zero(modeRead, "/dev/zero", "");
  DiskFile null(modeWrite, "/dev/null", "");
  EXPECT_TRUE(all({zero.open(), zero.close(), zero.open(), null.open(),
                   !zero.read(bytes_.data(), 1), !zero.getSize(size_), !null.getSize(size_)}));
  EXPECT_EQ(null.error, 1U);
}

TEST_F(DiskFileTest, SizesHave32Bits) {
  EXPECT_TRUE(input_.open());
  for (const std::uint64_t size : {0x0ULL, 0xFFFFFFFFULL, 0x100000000ULL}) {
    std::filesystem::resize_file(name_, size);
    EXPECT_EQ(input_.getSize(size_), size <= 0xFFFFFFFF) << size;
    EXPECT_EQ(size_, std::min<std::uint64_t>(size, 0xFFFFFFFF)) << "unchanged by a failure";
  }
  EXPECT_EQ(input_.error, 1U);
}

TEST_F(DiskFileTest, WritesAtThePositionAndAppendsAtTheEnd) {
  EXPECT_TRUE(
      all({output_.open(), output_.write("\r\nabcd", 6), output_.seek(1), output_.write("AB", 2),
           output_.seek(6), output_.write("\n", 1), output_.getSize(size_) /* moves to the start */,
           output_.write("Z", 1), output_.close(), log_.open(), log_.getSize(size_),
           log_.write("+", 1), log_.close()}));
  EXPECT_EQ(directory_.read("some.bin"), "ZABbcd\n+");
  EXPECT_EQ(size_, 7U);
}

TEST_F(DiskFileTest, KeepsTheFlagsOfTheFirstOpening) {
  for (DiskFile* file : {&log_, &input_}) {
    EXPECT_TRUE(
        all({file->open(), file->close(), file->setMode(modeWrite), file->writeWhole("+", 1)}));
  }
  EXPECT_EQ(directory_.read("some.bin"), "+bc+");
  EXPECT_TRUE(all({output_.writeWhole("+", 1), output_.setMode(modeRead), output_.open()}));
  EXPECT_EQ(directory_.read("some.bin"), "");
}

TEST_F(DiskFileTest, ReadsAtThePositionUntilAReadFailsAndAgainOnceReopened) {
  char* const bytes = bytes_.data();
  EXPECT_TRUE(all({input_.open(), input_.seek(1), input_.read(bytes, 2),
                   input_.getSize(size_) /* moves to the start */, input_.read(bytes + 2, 1),
                   input_.readRange(bytes + 3, 2, 3), input_.readRange(bytes, 3, 3)}));
  EXPECT_STREQ(bytes, "bcac");
  EXPECT_FALSE(input_.readRange(bytes, 2, 1));
  EXPECT_EQ(input_.error, 1U);
  EXPECT_TRUE(all({!input_.read(bytes, 4), input_.getSize(size_), !input_.seek(0)}));
  EXPECT_EQ(size_, 3U);
  EXPECT_TRUE(all({input_.close(), input_.open(), input_.read(bytes, 1)}));
  EXPECT_EQ(input_.error, 16U) << "the code stays";
}

TEST_F(DiskFileTest, ReadsAndWritesWholeFiles) {
  EXPECT_FALSE(output_.writeWhole(nullptr, 3));
  EXPECT_TRUE(
      all({output_.writeWhole("12345", 5), input_.readWhole(block_, size_),
           output_.writeWhole("67890", size_), input_.open(), input_.readAll(block_, size_ = 2)}));
  EXPECT_EQ(std::string(block_.get(), block_.get() + 5), "67345");
}

TEST_F(DiskFileTest, UsesABufferInsteadOfTheFile) {
  std::stringbuf content;
  output_.useBuffer(content);
  EXPECT_TRUE(all({output_.open(), output_.write("1234", 4), output_.seek(1),
                   output_.write("ab", 2), output_.getSize(size_), output_.close()}));
  EXPECT_EQ(content.str(), "1ab4");
  EXPECT_EQ(directory_.read("some.bin"), "abc") << "untouched";
  struct FullBuffer : std::streambuf {
    int sync() override { return -1; }
  } full;
  output_.useBuffer(full);
  EXPECT_TRUE(output_.open());
  EXPECT_FALSE(output_.close());
  EXPECT_EQ(output_.error, 2U);
}

/// The file's bytes may be in memory already.
class CachedFile : public DiskFileTest {
 protected:
  CachedFile() { setFileCache(&cache_); }
  ~CachedFile() override { setFileCache(nullptr); }
  void add(std::string_view content) { cache_.add(name_, {blockOf(content), content.size()}); }
  /// Reads the file whole, always with the same object.
  std::string wholeFile() {
    const bool complete = input_.readImage(block_, size_) == DiskFile::WholeRead::complete;
    return complete ? std::string(block_.get(), block_.get() + size_) : "fails";
  }

  FileCache cache_;
};

TEST_F(CachedFile, IsReadInsteadOfTheDisk) {
  EXPECT_EQ(wholeFile(), "abc");
  add("");
  EXPECT_EQ(wholeFile(), "");
  add("in memory");
  EXPECT_EQ(wholeFile(), "in memory");
  EXPECT_EQ(setFileCache(nullptr), &cache_);
  EXPECT_EQ(wholeFile(), "abc");
  setFileCache(&cache_);
  EXPECT_TRUE(output_.writeWhole("written", 7));
  EXPECT_EQ(directory_.read("some.bin"), "written");
  cache_.remove(name_);
  EXPECT_EQ(wholeFile(), "written");
}

TEST_F(CachedFile, IsReadLikeAFile) {
  add("01234");
  char* const bytes = bytes_.data();
  EXPECT_TRUE(all({input_.open(), input_.read(bytes, 5), input_.getSize(size_)}));
  EXPECT_STREQ(bytes, "01234");
  EXPECT_EQ(size_, 5U);
  EXPECT_TRUE(all({input_.seek(4), input_.read(bytes, 1), input_.seek(2), input_.read(bytes + 1, 2),
                   input_.seek(5), input_.read(bytes, 0), !input_.read(bytes, 1), input_.close(),
                   input_.open(), input_.seek(6), !input_.read(bytes, 1), input_.close()}));
  EXPECT_STREQ(bytes, "42334");
}

}  // namespace tavrel::test
