#include "samples/iff_file.h"

#include <gtest/gtest.h>

#include "tests/support/aiff_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(IffFile, ListsTheChunksWhoseHeadersFormAndFileHold) {
  const auto form = [] { return aiff().chunk("1st ", "abc").chunk("2nd ", "defg"); };
  const std::uint32_t second = 12 + (8 + 4);  // where the second chunk begins
  const std::pair<std::string, std::size_t> rows[] = {
      {"JUNK" + form().str().substr(4), 2},      {form().claimFormSize(second - 8), 1},
      {form().claimFormSize(second - 7), 2},     {form().claimSize("1st ", 17), 1},
      {form().claimSize("1st ", 0xFFFFFFFF), 1}, {form().str().substr(0, 12 + 7), 0},
      {form().str().substr(0, second + 7), 1},   {form().str().substr(0, second + 8), 2}};
  const TemporaryDirectory directory;
  for (const auto& [content, count] : rows) {
    IffFile file(directory.write("a.iff", content).c_str());
    file.verbose = true;
    testing::internal::CaptureStdout();
    EXPECT_TRUE(file.load(iffId("AIFF")));
    EXPECT_EQ(testing::internal::GetCapturedStdout(),
              std::string("FORM\n    1st \n    2nd \n").substr(0, 5 + 9 * count));
    std::uint32_t size = 7;
    const IffChunk* chunk = nullptr;
    EXPECT_EQ(file.getChunkSize(0x326E6420, size), count == 2);
    EXPECT_TRUE(file.getChunkRecord(iffId("2nd "), chunk) ? size == 4 : size == 7);
    file.releaseImage();
  }
}

}  // namespace tavrel::test
