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
  const std::string report = "ERROR: This is not a 'AIFF' file.\n";
  const struct {
    const char* name;
    std::string content, listed, errors = "";
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
      {"another form type", twoChunks().form("AIFC"), "", report},
      {"form type cut off", aiff().substr(0, 11), "", report},
      {"", "", ""},  // no file has this name
  };
  const TemporaryDirectory directory;
  for (const auto& [name, content, listed, errors] : rows) {
    SCOPED_TRACE(name);
    directory.write("a.aif", content);
    IffFile file(directory.path(*name != '\0' ? "a.aif" : "none").c_str());
    file.verbose = true;
    const Printed printed =
        printedBy([&, isListed = !listed.empty()] { EXPECT_EQ(file.load(kAiff), isListed); });
    EXPECT_EQ(printed.errors, errors);
    EXPECT_EQ(printed.output, listed);
  }
}

TEST(IffFile, FindsTheFirstChunkWithAnId) {
  const TemporaryDirectory directory;
  IffFile file(directory.write("a.aif", twoChunks().chunk("next", "efghi")).c_str());
  EXPECT_TRUE(file.load(kAiff));
  std::uint32_t size = 7;
  IffChunk* record = nullptr;
  const IffChunk* constRecord = nullptr;
  EXPECT_TRUE(all({!file.hasChunk(kAiff), !file.getChunkSize(kAiff, size),
                   !file.getChunkRecord(kAiff, record), size == 7}));
  ASSERT_TRUE(
      all({file.hasChunk(kNext), file.getChunkSize(kNext, size), file.getChunkRecord(kNext, record),
           std::as_const(file).getChunkRecord(kNext, constRecord)}));
  EXPECT_EQ(std::string(record->data, record->data + size), "bcd");
  EXPECT_EQ(constRecord, record);
  EXPECT_EQ(record, &file.chunkList()[1]);
  IffFile::IdText text{"????"};
  IffFile::idToText(record->id, text.data());
  EXPECT_STREQ(text.data(), "next");
  file.releaseImage();
  EXPECT_EQ(file.takeImage(), nullptr);
}

}  // namespace tavrel::test
