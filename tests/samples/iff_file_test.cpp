#include "samples/iff_file.h"

#include "tests/support/all.h"
#include "tests/support/printed.h"
#include "tests/support/sound_builder.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

constexpr std::uint32_t kAiff = 0x41494646;  // "AIFF"
constexpr std::uint32_t kNext = 0x6E657874;  // "next"

AiffBuilder twoChunks() { return aiff().chunk("odd ", "a").chunk("next", "bcd"); }

TEST(IffFile, ListsTheChunksOfItsForm) {
  const std::string first = "FORM\n    odd \n";
  const std::string both = first + "    next\n";
  const struct {
    const char* name;
    std::string content, listed;
  } rows[] = {
      {"no form id", "JUNK" + twoChunks().substr(4), both},
      {"form ends with the first chunk", twoChunks().claimFormSize(4 + (8 + 2)), first},
      {"form ends in the second chunk", twoChunks().claimFormSize(4 + (8 + 2) + 1), both},
      {"form of size 0", twoChunks().claimFormSize(0), first},
      {"form ends after the file", twoChunks().claimFormSize(0xFFFFFFFF), both},
      {"chunk ends after the file", twoChunks().claimSize("odd ", 0xFFFFFFFF), first},
      {"chunk without its pad byte", twoChunks().substr(0, 12 + 8 + 1), first},
      {"header ends with the file", twoChunks().substr(0, 12 + (8 + 2) + 8), both},
      {"header cut off", twoChunks().substr(0, 12 + (8 + 2) + 7), first},
      {"no chunk", aiff(), "FORM\n"},
      {"zero bytes in an id", aiff().chunk({"a\0\0b", 4}, ""), {"FORM\n    a\0\0b\n", 14}},
  };
  const TemporaryDirectory directory;
  for (const auto& [name, content, listed] : rows) {
    SCOPED_TRACE(name);
    IffFile file(directory.write("a.aif", content).c_str());
    file.verbose = true;
    EXPECT_EQ(printedBy([&] { EXPECT_TRUE(file.load(kAiff)); }).output, listed);
  }
}

TEST(IffFile, FindsTheFirstChunkWithAnId) {
  const TemporaryDirectory directory;
  IffFile file(directory.write("a.aif", twoChunks().chunk("next", "efghi")).c_str());
  std::uint32_t size = 7;
  IffChunk* record = nullptr;
  const IffChunk* constRecord = nullptr;
  EXPECT_TRUE(all({file.load(kAiff), !file.hasChunk(kAiff), !file.getChunkSize(kAiff, size),
                   !file.getChunkRecord(kAiff, record), size == 7, file.hasChunk(kNext),
                   file.getChunkSize(kNext, size), file.getChunkRecord(kNext, record),
                   std::as_const(file).getChunkRecord(kNext, constRecord)}));
  ASSERT_EQ(record, &file.chunkList().at(1));
  EXPECT_EQ(constRecord, record);
  EXPECT_EQ(std::string(record->data, record->data + size), "bcd");
  file.releaseImage();
  EXPECT_EQ(file.takeImage(), nullptr);
}

}  // namespace tavrel::test
