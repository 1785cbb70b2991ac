#include "foundation/text_output_file.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(TextOutputFileTest, WritesEachPieceByteForByte) {
  TemporaryDirectory directory;
  TextOutputFile file(directory.write("a.txt", "an older and longer file").c_str());
  ASSERT_TRUE(file.open() && file.writeText("a\r\n") && file.writeBytes("b\0c", 3));
  EXPECT_TRUE(file.writeNewline() && file.writeNewlines(2) && file.writeNewlines(-1));
  EXPECT_TRUE(file.writeTab() && file.writeTabs(2) && file.writeTabs(-1));
  EXPECT_TRUE(file.writeLong(INT32_MIN) && file.writeBool(1) && file.writeBool(2));
  EXPECT_TRUE(file.writeComment("x") && file.close());
  EXPECT_EQ(directory.read("a.txt"),
            "a\r\nb" + std::string(1, '\0') + "c\n\n\n\t\t\t-214748364810; x");
}

TEST(TextOutputFileTest, AClosedFileTakesNothingAndOnlyWriteBytesSetsACode) {
  TextOutputFile file("never opened");
  EXPECT_FALSE(file.writeText("a") || file.writeNewline() || file.writeNewlines(1));
  EXPECT_FALSE(file.writeTab() || file.writeTabs(1) || file.writeLong(1) || file.writeBool(1));
  EXPECT_FALSE(file.writeComment("a"));
  EXPECT_TRUE(file.writeNewlines(0) && file.writeTabs(0) && file.error == errorNone);
  EXPECT_FALSE(file.writeBytes("a", 1));
  EXPECT_EQ(file.error, errorWriteNotOpen);
}

}  // namespace tavrel::test
