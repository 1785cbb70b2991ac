#include "foundation/text_utilities.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(TextUtilitiesTest, ComparesRegardlessOfTheCaseOfAToZ) {
  using Pair = std::pair<const char*, const char*>;
  for (const auto& [first, second] : {Pair{"", ""}, Pair{"aZ09[", "Az09["}, Pair{"zA", "Za"}}) {
    EXPECT_TRUE(equalsIgnoringCase(first, second)) << first;
  }
  for (const auto& [first, second] :
       {Pair{"a", "ab"}, Pair{"ab", "a"}, Pair{"@", "`"}, Pair{"[", "{"}, Pair{"\xC4", "\xE4"},
        Pair{nullptr, ""}, Pair{"", nullptr}}) {
    EXPECT_FALSE(equalsIgnoringCase(first, second)) << testing::PrintToString(first);
  }
}

TEST(TextUtilitiesTest, ChangesLettersOnly) {
  std::string text = "boom-3a[\xE4z";
  EXPECT_TRUE(toUpper(text.data()));
  EXPECT_EQ(text, "BOOM-3A[\xE4Z");
  EXPECT_TRUE(toLower(text.data()));
  EXPECT_EQ(text, "boom-3a[\xE4z");
  EXPECT_TRUE(upperFirst(text.data()));
  EXPECT_TRUE(replaceChar(text.data(), 'o', '_'));
  EXPECT_EQ(text, "B__m-3a[\xE4z");
}

TEST(TextUtilitiesTest, RefusesNullAndEmptyTexts) {
  char empty[] = "";
  for (char* text : {empty, static_cast<char*>(nullptr)}) {
    EXPECT_EQ(replaceChar(text, 'a', 'b'), text != nullptr);
    EXPECT_FALSE(toUpper(text));
    EXPECT_FALSE(toLower(text));
    EXPECT_FALSE(upperFirst(text));
    EXPECT_FALSE(isAllDigits(text));
    EXPECT_FALSE(isMixedCase(text));
  }
}

TEST(TextUtilitiesTest, RecognisesDigitsAndMixedCase) {
  EXPECT_TRUE(isAllDigits("0123456789"));
  EXPECT_FALSE(isAllDigits("1/"));
  EXPECT_FALSE(isAllDigits(":1"));
  EXPECT_TRUE(isMixedCase("1b_C"));
  EXPECT_FALSE(isMixedCase("1b_c"));
  EXPECT_FALSE(isMixedCase("A\xE4"));
}

}  // namespace tavrel::test
