#include "foundation/text_output_file.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(TextOutputFileTest, WritesEachPieceByteForByteAndNothingToAClosedFile) {
  TemporaryDirectory directory;
  TextOutputFile file(directory.path("a.txt").c_str());
  EXPECT_FALSE(file.writeText("a") || file.writeNewlines(1) || file.writeTabs(1) ||
               file.writeLong(1) || file.writeBool(1) || file.writeComment("a"));
  EXPECT_TRUE(file.error == errorNone && !file.writeBytes("a", 1) && file.error == 11);
  ASSERT_TRUE(file.open() && file.writeText("a\r\n") && file.writeBytes("b\0c", 3));
  EXPECT_TRUE(file.writeNewlines(2) && file.writeNewlines(-1) && file.writeTabs(2));
  EXPECT_TRUE(file.writeTabs(-1) && file.writeLong(INT32_MIN) && file.writeBool(1));
  EXPECT_TRUE(file.writeBool(2) && file.writeComment("x") && file.close());
  EXPECT_EQ(directory.read("a.txt"), std::string("a\r\nb\0c\n\n\t\t-214748364810; x", 26));
}

}  // namespace tavrel::test
