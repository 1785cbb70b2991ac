#include "foundation/text_output_file.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(TextOutputFileTest, WritesEachPieceByteForByteAndNothingToAClosedFile) {
  const struct {
    const char* name;
    bool (*write)(TextOutputFile&);
    std::string_view written;
    bool whileClosed = false;
    std::uint32_t error = 0;
  } rows[] = {
      {"text", [](TextOutputFile& f) { return f.writeText("a\r\n"); }, "a\r\n"},
      {"bytes", [](TextOutputFile& f) { return f.writeBytes("a\0b", 3); }, {"a\0b", 3}, false, 11},
      {"newlines", [](TextOutputFile& f) { return f.writeNewlines(2); }, "\n\n"},
      {"no newlines", [](TextOutputFile& f) { return f.writeNewlines(-1); }, "", true},
      {"tabs", [](TextOutputFile& f) { return f.writeTabs(2); }, "\t\t"},
      {"no tabs", [](TextOutputFile& f) { return f.writeTabs(-1); }, "", true},
      {"null", [](TextOutputFile& f) { return !f.writeText(nullptr); }, "", true},
      {"long", [](TextOutputFile& f) { return f.writeLong(INT32_MIN); }, "-2147483648"},
      {"1", [](TextOutputFile& f) { return f.writeBool(1); }, "1"},
      {"2", [](TextOutputFile& f) { return f.writeBool(2); }, "0"},
      {"comment", [](TextOutputFile& f) { return f.writeComment("x"); }, "; x"},
  };
  const TemporaryDirectory directory;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    TextOutputFile file(directory.path("a.txt").c_str());
    EXPECT_EQ(row.write(file), row.whileClosed);
    EXPECT_EQ(file.error, row.error);
    EXPECT_TRUE(file.open());
    EXPECT_TRUE(row.write(file));
    EXPECT_TRUE(file.close());
    EXPECT_EQ(directory.read("a.txt"), row.written);
  }
}

}  // namespace tavrel::test
