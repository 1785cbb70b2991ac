#include "samples/iff_file.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/support/aiff_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

namespace {

/// The ids in the chunk list that a verbose load prints.
std::string chunksOf(const std::string& content) {
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
  const std::string content =
      aiff().chunk("odd ", "abc").chunk("TWIN", "one").chunk("TWIN", "second").str();
  IffFile file(directory.write("a.iff", content).c_str());
  ASSERT_TRUE(file.load(iffId("AIFF")));
  std::uint8_t* data = nullptr;
  std::uint32_t size = 0;
  const IffChunk* record = nullptr;
  ASSERT_TRUE(file.getChunk(iffId("TWIN"), data, size));
  EXPECT_EQ(std::string(data, data + size), "one");
  EXPECT_TRUE(file.getChunkRecord(iffId("TWIN"), record));
  EXPECT_EQ(record->data, data);
  size = 0;
  EXPECT_TRUE(file.getChunkSize(0x6F646420, size)) << "ids are big-endian";
  EXPECT_FALSE(file.hasChunk(iffId("NONE")) || file.getChunk(iffId("NONE"), data, size));
  EXPECT_EQ(size, 3U) << "a failed query changes its out-values";
  file.releaseImage();
}

TEST(IffFile, ListsWhatTheFormAndTheFileHold) {
  const std::string none = "FORM\n";
  const std::string first = none + "    1st \n";
  const std::string both = first + "    2nd \n";
  const auto form = [] { return aiff().chunk("1st ", "abc").chunk("2nd ", "defg"); };
  const std::string whole = form().str();
  EXPECT_EQ(chunksOf("JUNK" + whole.substr(4)), both) << "the first word is not judged";
  const std::uint32_t firstEnd = 4 + 8 + 4;  // form type, the first chunk with its pad
  for (const auto& [claim, listed] :
       {std::pair{0U, first}, {firstEnd, first}, {firstEnd + 1, both}, {0xFFFFFFFFU, both}}) {
    EXPECT_EQ(chunksOf(form().claimFormSize(claim).str()), listed) << claim;
  }
  for (const std::uint32_t claim : {17U, 0x7FFFFFFFU, 0xFFFFFFF8U, 0xFFFFFFFFU}) {
    EXPECT_EQ(chunksOf(form().claimSize("1st ", claim).str()), first) << claim;
  }
  for (std::uint32_t size = 12; size < whole.size(); ++size) {
    const bool hasFirst = size >= 12 + 8;
    const bool hasSecond = size >= 8 + firstEnd + 8;
    EXPECT_EQ(chunksOf(whole.substr(0, size)), hasSecond ? both : hasFirst ? first : none) << size;
  }
}

TEST(IffFile, ForeignAndUnreadableFilesAreRefused) {
  const TemporaryDirectory directory;
  const std::string foreign = "ERROR: This is not a 'AIFF' file.\n";
  const std::string type = aiff().form("AIFC").str();
  for (const auto& [name, line] : {std::pair{directory.write("type", type), foreign},
                                   {directory.write("short", aiff().str().substr(0, 11)), foreign},
                                   {directory.write("empty", ""), foreign},
                                   {directory.path("missing"), ""},
                                   {directory.path(), ""}}) {
    testing::internal::CaptureStderr();
    EXPECT_FALSE(IffFile(name.c_str()).load(iffId("AIFF"))) << name;
    EXPECT_EQ(testing::internal::GetCapturedStderr(), line) << name;
  }
}

}  // namespace tavrel::test
