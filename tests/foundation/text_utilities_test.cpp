#include "foundation/text_utilities.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrel::test {

TEST(TextUtilitiesTest, ComparesRegardlessOfTheCaseOfAToZ) {
  const struct {
    const char *first, *second;
    bool equal;
  } rows[] = {{"", "", true},      {"aZ0[", "Az0[", true},  {"zA", "Za", true},
              {"a", "ab", false},  {"ab", "a", false},      {"@", "`", false},
              {"[", "{", false},   {"\xC4", "\xE4", false}, {nullptr, "", false},
              {"", nullptr, false}};
  for (const auto& [first, second, equal] : rows) {
    EXPECT_EQ(equalsIgnoringCase(first, second), equal) << testing::PrintToString(first);
  }
}

TEST(TextUtilitiesTest, ChangesTextsInPlace) {
  const struct {
    const char* name;
    bool (*change)(char*);
    bool takesEmpty;
    std::string before, after;
  } rows[] = {
      {"toUpper", toUpper, false, "boom-3a[\xE4z", "BOOM-3A[\xE4Z"},
      {"toLower", toLower, false, "BOOM-3A[\xC4Z", "boom-3a[\xC4z"},
      {"upperFirst", upperFirst, false, "bb", "Bb"},
      {"replaceChar", [](char* t) { return replaceChar(t, 'o', '_'); }, true, "Oooh", "O__h"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    std::string text = row.before;
    EXPECT_TRUE(row.change(text.data()));
    EXPECT_EQ(text, row.after);
    EXPECT_EQ(row.change(std::string().data()), row.takesEmpty);
    EXPECT_FALSE(row.change(nullptr));
  }
}

TEST(TextUtilitiesTest, RecognisesDigitsAndMixedCase) {
  EXPECT_TRUE(isAllDigits("0123456789"));
  EXPECT_TRUE(isMixedCase("1b_C"));
  for (const char* text : {static_cast<const char*>(nullptr), "", "1/", ":1", "1b_c", "A\xE4"}) {
    EXPECT_FALSE(isAllDigits(text)) << testing::PrintToString(text);
    EXPECT_FALSE(isMixedCase(text)) << testing::PrintToString(text);
  }
}

}  // namespace tavrel::test
