#include "foundation/disk_file.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(DiskFileTest, EachErrorHasItsWords) {
  DiskFile file;
  EXPECT_FALSE(file.errorText() || file.reportError());
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
}

TEST(DiskFileTest, OperationsTestTheirStateInOrder) {
  TemporaryDirectory directory;
  std::ostringstream codes;
  for (std::uint32_t mode = 0; mode < 5; ++mode) {
    DiskFile f(mode % 3, directory.write("some.bin", "abc").c_str(), nullptr);
    EXPECT_TRUE(mode == 4 || f.open());
    f.mode = mode;
    char byte = 0;
    ByteBlock all;
    std::uint32_t size = 0;
    const auto code = [&f](bool done) { return std::to_string(done ? 0 : f.error) + ' '; };
    codes << code(f.open()) << code(f.setName("other")) << code(f.setPath("other"))
          << code(f.setMode(mode)) << code(f.read(&byte, 1)) << code(f.read(nullptr, 1))
          << code(f.readAll(all, size)) << code(f.readRange(&byte, 0, 1)) << code(f.write("a", 1))
          << code(f.seek(0)) << code(f.getSize(size)) << code(f.close()) << code(f.close()) << '\n';
    EXPECT_TRUE(mode == 4 || (f.setMode(mode % 3) && f.open())) << "whatever its mode was";
  }
  EXPECT_EQ(codes.str(),
            "6 13 13 13 0 14 0 0 9 0 0 0 10 \n"        // for reading
            "6 13 13 13 9 9 9 9 0 0 0 0 10 \n"         // for writing
            "6 13 13 13 9 9 9 9 0 15 0 0 10 \n"        // for appending
            "6 13 13 13 9 9 9 9 9 9 9 9 10 \n"         // in a mode that there isn't
            "9 0 0 0 12 12 12 12 11 12 12 10 10 \n");  // closed, and in such a mode
}

TEST(DiskFileTest, OnlyFilesBelow4GiBAreTakenAndOnlyWritingCreatesThem) {
  TemporaryDirectory directory;
  for (const std::uint32_t mode : {modeRead, modeWrite, modeAppend}) {
    DiskFile folder(mode, directory.path().c_str(), nullptr);
    EXPECT_FALSE(folder.open() || folder.isOpen);
    EXPECT_EQ(folder.error, (std::array{4U, 3U, 8U}[mode]));
    DiskFile missing(mode, directory.path("missing").c_str(), "");
    EXPECT_FALSE(missing.writeWhole(nullptr, 3) || (mode == modeRead && missing.open()));
  }
  EXPECT_TRUE(std::filesystem::is_empty(directory.path()));
  DiskFile file(modeRead, directory.write("some.bin", "").c_str(), "");
  std::uint32_t size = 0;
  std::filesystem::resize_file(directory.path("some.bin"), 0xFFFFFFFF);
  EXPECT_TRUE(file.open() && file.getSize(size) && size == 0xFFFFFFFF);
  std::filesystem::resize_file(directory.path("some.bin"), 0x100000000);
  EXPECT_TRUE(!file.getSize(size) && file.error == errorRead);
}

TEST(DiskFileTest, WritesAndReadsExactlyWhatIsAskedFor) {
  TemporaryDirectory directory;
  const std::string name = directory.write("some.bin", "an older and longer file");
  DiskFile file(modeWrite, name.c_str(), "");
  std::uint32_t size = 0;
  ASSERT_TRUE(file.open() && file.write("\r\nabcd", 6));
  EXPECT_TRUE(file.seek(0) && file.write("AB", 2) && file.seek(6) && file.write("\n", 1));
  EXPECT_TRUE(file.getSize(size) && size == 7 && file.write("Z", 1) && file.close());
  DiskFile more(modeAppend, name.c_str(), "");
  EXPECT_TRUE(more.open() && more.getSize(size) && more.write("+", 1) && more.close());
  EXPECT_TRUE(more.setMode(modeWrite) && more.writeWhole("2", 1)) << "the flags stay";
  EXPECT_EQ(directory.read("some.bin"), "ZBabcd\n+2");

  DiskFile input(modeRead, name.c_str(), "");
  ByteBlock block;
  ASSERT_TRUE(input.readWhole(block, size) && !input.isOpen && size == 9);
  EXPECT_TRUE(input.open() && input.seek(7) && input.readAll(block, size = 2));
  char bytes[] = "......";
  EXPECT_TRUE(input.readRange(bytes, 1, 3) && input.readRange(bytes, 3, 3));
  EXPECT_TRUE(input.read(bytes + 2, 1) && input.getSize(size));
  EXPECT_TRUE(!input.readRange(bytes, 2, 1) && input.read(bytes + 3, 1) && input.seek(7));
  EXPECT_EQ(bytes + std::string(block.get(), block.get() + 9), "BabZ..+2abcd\n+2");
  EXPECT_FALSE(input.read(bytes, 3)) << "only 2 bytes are left";
  EXPECT_TRUE(input.isOpen && input.close() && input.error == errorRead) << "the code stays";
}

}  // namespace tavrel::test
