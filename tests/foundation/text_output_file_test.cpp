#include "foundation/text_output_file.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(TextOutputFileTest, WritesEachPieceByteForByteAndNothingToAClosedFile) {
  const struct {
    const char* name;
    bool (*write)(TextOutputFile&);
    std::string_view written;
  } rows[] = {
      {"text", [](TextOutputFile& f) { return f.writeText("a\r\n"); }, "a\r\n"},
      {"newlines", [](TextOutputFile& f) { return f.writeNewlines(2); }, "\n\n"},
      {"tabs", [](TextOutputFile& f) { return f.writeTabs(2); }, "\t\t"},
      {"long", [](TextOutputFile& f) { return f.writeLong(INT32_MIN); }, "-2147483648"},
      {"1", [](TextOutputFile& f) { return f.writeBool(1); }, "1"},
      {"2", [](TextOutputFile& f) { return f.writeBool(2); }, "0"},
      {"comment", [](TextOutputFile& f) { return f.writeComment("x"); }, "; x"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    const TemporaryDirectory directory;
    TextOutputFile file(directory.path("a.txt").c_str());
    EXPECT_FALSE(row.write(file));
    EXPECT_EQ(file.error, 0U);
    EXPECT_TRUE(file.open());
    EXPECT_TRUE(row.write(file));
    EXPECT_TRUE(file.close());
    EXPECT_EQ(directory.read("a.txt"), row.written);
  }
}

TEST(TextOutputFileTest, WritesNothingForNullOrANegativeCount) {
  TextOutputFile file("a.txt");
  EXPECT_TRUE(file.writeNewlines(-1));
  EXPECT_TRUE(file.writeTabs(-1));
  EXPECT_FALSE(file.writeText(nullptr));
  EXPECT_FALSE(file.writeBytes("a", 1));
  EXPECT_EQ(file.error, 11U);
}

}  // namespace tavrel::test
