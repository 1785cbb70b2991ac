#include "foundation/text_utilities.h"

#include <gtest/gtest.h>

#include <string>

namespace tavrel::test {

TEST(TextUtilitiesTest, ChangesInPlaceTouchLettersOnly) {
  std::string text = "boom-3a[\xE4z";
  EXPECT_TRUE(toUpper(text.data()) && text == "BOOM-3A[\xE4Z") << text;
  EXPECT_TRUE(toLower(text.data()) && text == "boom-3a[\xE4z") << text;
  EXPECT_TRUE(upperFirst(text.data()) && text == "Boom-3a[\xE4z") << text;
  EXPECT_TRUE(replaceChar(text.data(), 'o', '_') && text == "B__m-3a[\xE4z") << text;
}

TEST(TextUtilitiesTest, QuestionsLookAtEveryCharacterAndEmptyTextsAnswerNo) {
  char empty[] = "";
  EXPECT_TRUE(replaceChar(empty, 'a', 'b') && !replaceChar(nullptr, 'a', 'b'));
  for (char* text : {empty, static_cast<char*>(nullptr)}) {
    EXPECT_FALSE(toUpper(text) || toLower(text) || upperFirst(text));
    EXPECT_FALSE(isAllDigits(text) || isMixedCase(text));
  }
  EXPECT_TRUE(isAllDigits("0123456789") && isMixedCase("Ab") && isMixedCase("1b_C"));
  for (const char* text : {"12a", "-1", "1 ", "a", "ab", "AB\xE4"}) {
    EXPECT_FALSE(isAllDigits(text) || isMixedCase(text)) << text;
  }
}

}  // namespace tavrel::test
