#include "foundation/text_utilities.h"

#include "tests/support/all.h"

namespace tavrel::test {

TEST(TextUtilitiesTest, ComparesRegardlessOfTheCaseOfAToZ) {
  const struct {
    const char *first, *second;
    bool equal;
  } rows[] = {{"", "", true},          {"aZ0[", "Az0[", true}, {"a", "ab", false},
              {"ab", "a", false},      {"@", "`", false},      {"[", "{", false},
              {"\xC4", "\xE4", false}, {nullptr, "", false},   {"", nullptr, false}};
  for (const auto& [first, second, equal] : rows) {
    EXPECT_EQ(equalsIgnoringCase(first, second), equal) << testing::PrintToString(first);
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

TEST(TextUtilitiesTest, RecognisesDigitsAndMixedCaseAndRefusesNullAndEmptyTexts) {
  EXPECT_TRUE(all({isAllDigits("0123456789"), isMixedCase("1b_C")}));
  for (const char* text : {"1/", ":1", "1b_c", "A\xE4", "", static_cast<const char*>(nullptr)}) {
    EXPECT_TRUE(all({!isAllDigits(text), !isMixedCase(text)})) << testing::PrintToString(text);
  }
  char empty[] = "";
  for (char* text : {empty, static_cast<char*>(nullptr)}) {
    EXPECT_EQ(replaceChar(text, 'a', 'b'), text != nullptr);
    EXPECT_TRUE(all({!toUpper(text), !toLower(text), !upperFirst(text)}));
  }
}

}  // namespace tavrel::test
