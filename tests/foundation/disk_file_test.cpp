#include "foundation/disk_file.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

constexpr std::uint32_t kNoSuchMode = 3;

TEST(DiskFileTest, EachErrorHasItsWordsAndTheNameWithoutItsPath) {
  DiskFile file(modeRead, "100%s.bin", "snd\\");
  EXPECT_FALSE(file.errorText() || file.reportError());
  testing::internal::CaptureStderr();
  while (++file.error <= errorSeek) {
    EXPECT_TRUE(file.reportError());
  }
  file.error = errorSeek;
  EXPECT_STREQ(file.errorText(), "File System Error: Seek Error (%s)");
  const std::string longName(400, 'n');
  EXPECT_TRUE(file.setName(longName.c_str()) && file.reportError());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "File System Error: Read Error (100%s.bin)\n"
            "File System Error: Write Error (100%s.bin)\n"
            "File System Error: Unable to Open \"100%s.bin\" for Writing\n"
            "File System Error: File \"100%s.bin\" Not Found\n"
            "File System Error: Unable to Allocate Memory (100%s.bin)\n"
            "File System Error: File \"100%s.bin\" is Already Open\n"
            "File System Error: Unable to Get File Name\n"
            "File System Error: Unable to Open \"100%s.bin\" For Write Appension\n"
            "File System Error: Bad Value for Mode (100%s.bin)\n"
            "File System Error: File \"100%s.bin\" is Already Closed\n"
            "File System Error: Can't Write \"100%s.bin\", File is Not Open\n"
            "File System Error: Can't Perform Operation, File \"100%s.bin\" is Not Open\n"
            "File System Error: Can't Perform Operation, File \"100%s.bin\" is Open\n"
            "File System Error: Can't Read \"100%s.bin\" into NULL Buffer\n"
            "File System Error: Can't Seek in Append Mode (100%s.bin)\n"
            "File System Error: Seek Error (100%s.bin)\n"
            "File System Error: Seek Error (" +
                longName + ")\n");
}

bool getsSize(DiskFile& file) {
  std::uint32_t size = 0;
  return file.getSize(size);
}

bool readsAll(DiskFile& file) {
  ByteBlock block;
  std::uint32_t size = 0;
  return file.readAll(block, size);
}

TEST(DiskFileTest, OperationsTestTheirStateInOrder) {
  static char byte;
  const struct {
    const char* name;
    bool (*run)(DiskFile&);
    std::uint32_t codes[4], closedCode;  // open in modes 0 to 3; closed in any
  } operations[] = {
      {"setName", [](DiskFile& f) { return f.setName("other"); }, {13, 13, 13, 13}, 0},
      {"setPath", [](DiskFile& f) { return f.setPath("other"); }, {13, 13, 13, 13}, 0},
      {"setMode", [](DiskFile& f) { return f.setMode(9); }, {13, 13, 13, 13}, 0},
      {"open", [](DiskFile& f) { return !f.isOpen || f.open(); }, {6, 6, 6, 6}, 0},
      {"close", [](DiskFile& f) { return f.close(); }, {0, 0, 0, 9}, 10},
      {"read", [](DiskFile& f) { return f.read(&byte, 1); }, {0, 9, 9, 9}, 12},
      {"read null", [](DiskFile& f) { return f.read(nullptr, 1); }, {14, 9, 9, 9}, 12},
      {"readAll", readsAll, {0, 9, 9, 9}, 12},
      {"range", [](DiskFile& f) { return f.readRange(&byte, 0, 1); }, {0, 9, 9, 9}, 12},
      {"range null", [](DiskFile& f) { return f.readRange(nullptr, 0, 1); }, {14, 9, 9, 9}, 12},
      {"write", [](DiskFile& f) { return f.write(&byte, 1); }, {9, 0, 0, 9}, 11},
      {"seek", [](DiskFile& f) { return f.seek(0); }, {0, 0, 15, 9}, 12},
      {"getSize", getsSize, {0, 0, 0, 9}, 12},
  };
  TemporaryDirectory directory;
  for (const auto& operation : operations) {
    for (std::uint32_t mode = modeRead; mode <= kNoSuchMode; ++mode) {
      SCOPED_TRACE(operation.name + (" in mode " + std::to_string(mode)));
      const std::string name = directory.write("some.bin", "abc");
      DiskFile closed(mode, name.c_str(), nullptr);
      EXPECT_EQ(operation.run(closed), operation.closedCode == 0);
      EXPECT_EQ(closed.error, operation.closedCode);
      DiskFile opened(mode == kNoSuchMode ? modeWrite : mode, name.c_str(), nullptr);
      ASSERT_TRUE(opened.open());
      opened.mode = mode;
      EXPECT_EQ(operation.run(opened), operation.codes[mode] == 0);
      EXPECT_EQ(opened.error, operation.codes[mode]);
      EXPECT_EQ(opened.isOpen, std::string(operation.name) != "close");
      EXPECT_EQ(opened.fileName.name.get(), name) << "an open file keeps its name";
    }
  }
}

TEST(DiskFileTest, OpenFailsWithTheCodeOfItsModeAndCreatesNothing) {
  TemporaryDirectory directory;
  const std::uint32_t codes[] = {4, 3, 8, 9};
  for (std::uint32_t mode = modeRead; mode <= kNoSuchMode; ++mode) {
    for (const std::string& name : {directory.path("no folder/a.bin"), directory.path()}) {
      DiskFile file(mode, name.c_str(), nullptr);
      EXPECT_FALSE(file.open() || file.isOpen) << name << ", mode " << mode;
      EXPECT_EQ(file.error, codes[mode]) << name;
    }
  }
  const std::string missing = directory.path("missing.bin");
  EXPECT_FALSE(DiskFile(modeRead, missing.c_str(), "").open());
  EXPECT_FALSE(DiskFile(modeWrite, missing.c_str(), "").writeWhole(nullptr, 3));
  EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
}

TEST(DiskFileTest, WritesCutSeekAndAppendByteForByte) {
  TemporaryDirectory directory;
  const std::string name = directory.write("some.bin", "an older and longer file");
  DiskFile file(modeWrite, name.c_str(), "");
  std::uint32_t size = 0;
  ASSERT_TRUE(file.open() && file.write("\r\nabcd", 6));
  EXPECT_TRUE(file.seek(0) && file.write("AB", 2) && file.seek(6) && file.write("\n", 1));
  EXPECT_TRUE(file.getSize(size) && size == 7 && file.write("Z", 1) && file.close());
  EXPECT_EQ(directory.read("some.bin"), "ZBabcd\n") << "getSize leaves the position at 0";
  DiskFile appended(modeAppend, name.c_str(), "");
  EXPECT_TRUE(appended.open() && appended.getSize(size) && appended.write("+", 1));
  EXPECT_TRUE(appended.close() && appended.writeWhole("2", 1));
  DiskFile uncut(modeRead, name.c_str(), "");
  EXPECT_TRUE(uncut.open() && uncut.close() && uncut.setMode(modeWrite) && uncut.open());
  EXPECT_EQ(directory.read("some.bin"), "ZBabcd\n+2") << "the first open chooses the flags";
}

TEST(DiskFileTest, ReadsExactlyWhatIsAskedForOrFails) {
  TemporaryDirectory directory;
  const std::string content("a\r\n\0b", 5);
  DiskFile file(modeRead, directory.write("some.bin", content).c_str(), "");
  ByteBlock block;
  std::uint32_t length = 0;
  ASSERT_TRUE(file.readWhole(block, length) && length == content.size());
  EXPECT_EQ(std::string(block.get(), block.get() + length), content);
  char bytes[] = "........";
  EXPECT_TRUE(file.open() && file.seek(1) && file.read(bytes, 1) &&
              file.readRange(bytes + 1, 4, 5));
  EXPECT_STREQ(bytes, "\rb......");
  length = 2;
  EXPECT_TRUE(file.seek(1) && file.readAll(block, length));
  EXPECT_EQ(std::string(block.get(), block.get() + 3), "\r\n\n") << "not the 2 bytes asked for";
  EXPECT_FALSE(file.readRange(bytes, 2, 1));
  EXPECT_TRUE(file.getSize(length) && file.read(bytes, 5) && file.seek(3));
  EXPECT_FALSE(file.read(bytes, 3)) << "only 2 bytes are left";
  EXPECT_TRUE(file.isOpen && file.close());
  EXPECT_EQ(file.error, errorRead) << "the code outlives later successes";
}

TEST(DiskFileTest, OnlyRealFilesBelow4GiBHaveASize) {
  TemporaryDirectory directory;
  const std::string name = directory.write("some.bin", "");
  DiskFile file(modeRead, name.c_str(), "");
  for (const std::uint64_t size : {0x0ULL, 0xFFFFFFFFULL}) {
    std::filesystem::resize_file(name, size);
    std::uint32_t told = 1;
    EXPECT_TRUE(file.open() && file.getSize(told) && told == size && file.close()) << size;
  }
  std::filesystem::resize_file(name, 0x100000000);
  EXPECT_FALSE(file.open() && readsAll(file));
  EXPECT_EQ(file.error, errorRead);
}

TEST(DiskFileTest, DevicesAreNeitherReadForeverNorWrittenToInSilence) {
  if (!std::filesystem::is_character_file("/dev/full")) {
    GTEST_SKIP() << "this host has no such devices";
  }
  DiskFile endless(modeRead, "/dev/zero", "");
  EXPECT_TRUE(endless.open() && !readsAll(endless) && endless.error == errorRead);
  DiskFile full(modeWrite, "/dev/full", "");
  EXPECT_TRUE(full.open() && !getsSize(full) && full.write("abc", 3) && !full.close() &&
              !full.isOpen);
  EXPECT_EQ(full.error, errorWrite);
}

}  // namespace
}  // namespace tavrel::test
