#include "foundation/text_output_file.h"

#include "tests/support/all.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(TextOutputFileTest, WritesByteForByteAndNothingToAClosedFile) {
  const TemporaryDirectory directory;
  TextOutputFile file(directory.path("a.txt").c_str());
  EXPECT_TRUE(all({file.writeTabs(0), !file.writeTabs(1), !file.writeNewline(), !file.writeTab(),
                   !file.writeComment("x")}));
  EXPECT_EQ(file.error, 0U);
  EXPECT_FALSE(file.writeBytes("a", 1));
  EXPECT_EQ(file.error, 11U);
  EXPECT_TRUE(
      all({file.open(), file.writeText("a\r\n"), file.writeBytes("b\0c", 3), file.writeNewlines(2),
           file.writeNewlines(-1), file.writeTabs(2), file.writeTabs(-1), file.writeLong(INT32_MIN),
           file.writeBool(1), file.writeBool(2), file.writeComment("x"), !file.writeText(nullptr),
           file.close()}));
  EXPECT_EQ(directory.read("a.txt"), std::string("a\r\nb\0c\n\n\t\t-214748364810; x", 26));
}

}  // namespace tavrel::test
