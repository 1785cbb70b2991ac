#include "samples/iff_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/aiff_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

namespace {

constexpr const char* kOtherType = "ERROR: This is not a 'AIFF' file.\n";

/// The chunk list that a verbose load prints.
std::string chunkList(const std::string& content) {
  const TemporaryDirectory directory;
  IffFile file(directory.write("a.iff", content).c_str());
  file.verbose = true;
  testing::internal::CaptureStdout();
  EXPECT_TRUE(file.load(iffId("AIFF")));
  return testing::internal::GetCapturedStdout();
}

}  // namespace

TEST(IffFile, FindsTheFirstChunkOfAnId) {
  const TemporaryDirectory directory;
  const std::string name = directory.write(
      "a.iff", aiff().chunk("odd ", "abc").chunk("TWIN", "one").chunk("TWIN", "second").str());
  IffFile file(name.c_str());
  ASSERT_TRUE(file.load(iffId("AIFF")));
  std::uint8_t* data = nullptr;
  std::uint32_t size = 0;
  ASSERT_TRUE(file.getChunk(iffId("TWIN"), data, size));
  EXPECT_EQ(std::string(data, data + size), "one");
  const IffChunk* record = nullptr;
  ASSERT_TRUE(file.getChunkRecord(iffId("TWIN"), record));
  EXPECT_EQ(record->data, data);
  EXPECT_TRUE(file.getChunkSize(iffId("odd "), size));
  EXPECT_EQ(size, 3U);
  EXPECT_TRUE(file.hasChunk(0x6F646420));
  EXPECT_FALSE(file.hasChunk(iffId("NONE")));
  EXPECT_FALSE(file.getChunk(iffId("NONE"), data, size));
  EXPECT_EQ(size, 3U) << "a failed query changes its out-values";
  IffFile::IdText text{};
  IffFile::idToText(0x434F4D4D, text.data());
  EXPECT_STREQ(text.data(), "COMM");
  file.releaseImage();
}

TEST(IffFile, ListsWhatTheFormAndTheFileHold) {
  const std::string first = "FORM\n    1st \n";
  const std::string both = first + "    2nd \n";
  const auto form = [] { return aiff().chunk("1st ", "abc").chunk("2nd ", "defg"); };
  EXPECT_EQ(chunkList(form().str()), both);
  EXPECT_EQ(chunkList("JUNK" + form().str().substr(4)), both) << "the first word is not judged";
  EXPECT_EQ(chunkList(aiff().str()), "FORM\n");
  const std::uint32_t toSecond = 4 + 8 + 4;  // form type, first chunk, pad
  const std::string whole = form().str();
  for (const auto& [size, listed] :
       {std::pair{0U, first}, {toSecond, first}, {toSecond + 1, both}, {0xFFFFFFFFU, both}}) {
    EXPECT_EQ(chunkList(form().claimFormSize(size).str()), listed) << size;
  }
  for (const std::uint32_t size : {4U + 8 + 5, 0x7FFFFFFFU, 0xFFFFFFF8U, 0xFFFFFFFFU}) {
    EXPECT_EQ(chunkList(form().claimSize("1st ", size).str()), first) << size;
  }
  for (std::size_t size = 12; size < whole.size(); ++size) {
    const std::string& listed = size < 12 + 8 ? "FORM\n" : size < 8 + toSecond + 8 ? first : both;
    EXPECT_EQ(chunkList(whole.substr(0, size)), listed) << size;
  }
}

TEST(IffFile, ForeignAndUnreadableFilesAreRefused) {
  const TemporaryDirectory directory;
  const struct {
    std::string name;
    std::string output;
  } rows[] = {{directory.write("aifc", aiff().form("AIFC").chunk("COMM", "").str()), kOtherType},
              {directory.write("short", aiff().str().substr(0, 11)), kOtherType},
              {directory.write("empty", ""), kOtherType},
              {directory.path("missing"), ""},
              {directory.path(), ""}};
  for (const auto& row : rows) {
    IffFile file(row.name.c_str());
    testing::internal::CaptureStderr();
    EXPECT_FALSE(file.load(iffId("AIFF"))) << row.name;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), row.output) << row.name;
    EXPECT_FALSE(file.hasChunk(iffId("COMM")));
  }
}

}  // namespace tavrel::test
