#include "kit/extract/extracted_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tavrel::kit {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

TEST(ExtractedNamesTest, TakesTheDefinesPartsInLowerCase) {
  const std::vector<NameRequest> requests{{"BOOM_WAV", "wav"}, {"BELL_AIF", "wav"},
                                          {"BIG_MAP_DAT", ""}, {"BARE", ""},
                                          {"BARE_END_", ""},   {"", ""},
                                          {"", "mid"}};
  EXPECT_THAT(extractedNames(requests),
              ElementsAre("boom.wav", "bell.wav", "big_map.dat", "bare.bin", "bare_end.bin",
                          "0005.bin", "0006.mid"));
}

TEST(ExtractedNamesTest, TellsEqualNamesApartByTheirIds) {
  struct Row {
    std::vector<std::string> defines, names;
  };
  for (const Row& row : {
           Row{{"A_DAT", "B_DAT", "A_DAT"}, {"a_0.dat", "b.dat", "a_2.dat"}},
           Row{{"A_DAT", "a_dat", "A_DAT"}, {"a_0.dat", "a_1.dat", "a_2.dat"}},
           Row{{"A_2_DAT", "A_DAT", "A_DAT"}, {"a_2.dat", "a_1.dat", "0002.dat"}},
           // A name of an id takes the place of the same name from a define.
           Row{{"../A_DAT", "0000_DAT"}, {"0000.dat", "0000_1.dat"}},
           Row{{"0001_DAT", "../A_DAT", "0001_0_DAT"}, {"0000.dat", "0001.dat", "0001_0.dat"}},
           Row{{"0001_DAT", "../A_DAT", "0001_0_DAT", "0000_DAT"},
               {"0000.dat", "0001.dat", "0001_0.dat", "0000_3.dat"}},
       }) {
    std::vector<NameRequest> requests;
    for (const std::string& define : row.defines) {
      requests.push_back({define, ""});
    }
    EXPECT_THAT(extractedNames(requests), ElementsAreArray(row.names));
  }
}

TEST(ExtractedNamesTest, ReplacesUnsafeNamesByIds) {
  const std::string longStem(196, 'X');
  EXPECT_THAT(extractedNames({{longStem + "_WAV", "wav"}, {"Y" + longStem + "_WAV", "wav"}}),
              ElementsAre(std::string(196, 'x') + ".wav", "0001.wav"));
  EXPECT_THAT(extractedNames({{longStem + "_WAV", "wav"}, {longStem + "_WAV", "wav"}}),
              ElementsAre("0000.wav", "0001.wav"));
  for (const char* stem :
       {"",    ".A",  "../A", "..\\A", "/A",    "C:A",         "A*",     "A?",     "A\"",
        "A<",  "A>",  "A|",   "A\x1B", "A\x7F", "A\xFF",       "A..B",   "A.",     "CON",
        "aux", "Prn", "NUL",  "COM1",  "LPT9",  "COM\xC2\xB9", "CON .X", "CONIN$", "CONOUT$"}) {
    EXPECT_THAT(extractedNames({{std::string(stem) + "_DAT", ""}}), ElementsAre("0000.dat"))
        << testing::PrintToString(stem);
  }
  for (const char* extension : {"D/T", "D\\T", "D\n", "D.", "D ", ".D"}) {
    EXPECT_THAT(extractedNames({{std::string("A_") + extension, ""}}), ElementsAre("0000.bin"))
        << testing::PrintToString(extension);
  }
}

TEST(ExtractedNamesTest, KeepsNamesThatOnlyLookUnsafe) {
  for (const char* stem : {"console", "com", "com10", "lpt", "a.b", "a con", "gr\xC3\xBCn"}) {
    EXPECT_THAT(extractedNames({{std::string(stem) + "_DAT", ""}}),
                ElementsAre(std::string(stem) + ".dat"));
  }
}

}  // namespace
}  // namespace tavrel::kit
