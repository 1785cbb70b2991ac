#include "kit/extract/extracted_names.h"

#include <gtest/gtest.h>

namespace tavrel::kit {
namespace {

/// Returns the names, separated by blanks, of assets whose files all get the same extension.
std::string namesOf(const std::vector<std::string>& defines, const std::string& extension = "") {
  std::vector<NameRequest> requests;
  for (const std::string& define : defines) {
    requests.push_back({define, extension});
  }
  std::string names;
  for (const std::string& name : extractedNames(requests)) {
    names += (names.empty() ? "" : " ") + name;
  }
  return names;
}

TEST(ExtractedNamesTest, NamesFilesAfterDefinesAndTellsThemApart) {
  const std::string stem(196, 'X');
  const std::string lower(196, 'x');
  const struct {
    std::vector<std::string> defines;
    std::string names, extension = "";
  } rows[] = {
      {{"BOOM_WAV", "BELL_AIF", ""}, "boom.wav bell.wav 0002.wav", "wav"},
      {{"BIG_MAP_DAT", "BARE", "END_", "", "1_DAT"}, "big_map.dat bare.bin end.bin 0003.bin 1.dat"},
      {{"A_DAT", "B_DAT", "A_DAT"}, "a_0.dat b.dat a_2.dat"},
      {{"A_DAT", "a_dat", "A_DAT"}, "a_0.dat a_1.dat a_2.dat"},
      {{"A_2_DAT", "A_DAT", "A_DAT"}, "a_2.dat a_1.dat 0002.dat"},
      // A name of an id takes the place of the same name from a define.
      {{"../A_DAT", "0000_DAT"}, "0000.dat 0000_1.dat"},
      {{"0001_DAT", "../A_DAT", "0001_0_DAT"}, "0000.dat 0001.dat 0001_0.dat"},
      {{"0001_DAT", "../A_DAT", "0001_0_DAT", "0000_DAT"},
       "0000.dat 0001.dat 0001_0.dat 0000_3.dat"},
      {{stem + "_DAT", 'Y' + stem + "_DAT"}, lower + ".dat 0001.dat"},
      {{stem + "_DAT", stem + "_DAT"}, "0000.dat 0001.dat"},
      {{"A_Y" + stem, "A_Y" + stem}, "0000.bin 0001.bin"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(namesOf(row.defines, row.extension), row.names);
  }
}

TEST(ExtractedNamesTest, ReplacesUnsafeNamesByIds) {
  for (const char* stem :
       {"",    ".A",  "../A", "..\\A", "/A",    "C:A",         "A*",     "A?",     "A\"",
        "A<",  "A>",  "A|",   "A\x1B", "A\x7F", "A\xFF",       "A..B",   "A.",     "CON",
        "aux", "Prn", "NUL",  "COM1",  "LPT9",  "COM\xC2\xB9", "CON .X", "CONIN$", "CONOUT$"}) {
    EXPECT_EQ(namesOf({std::string(stem) + "_DAT"}), "0000.dat") << testing::PrintToString(stem);
  }
  for (const char* extension : {"D/T", "D\\T", "D\n", "D.", "D ", ".D"}) {
    EXPECT_EQ(namesOf({std::string("A_") + extension}), "0000.bin")
        << testing::PrintToString(extension);
  }
  for (const char* stem : {"console", "com", "com10", "lpt", "a.b", "a con", "gr\xC3\xBCn"}) {
    EXPECT_EQ(namesOf({std::string(stem) + "_DAT"}), stem + std::string(".dat"));
  }
}

}  // namespace
}  // namespace tavrel::kit
