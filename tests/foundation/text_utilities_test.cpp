#include "foundation/text_utilities.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(TextUtilitiesTest, ChangesTouchLettersOnlyAndEmptyTextsAnswerNo) {
  std::string text = "boom-3a[\xE4z";
  EXPECT_TRUE(toUpper(text.data()) && text == "BOOM-3A[\xE4Z") << text;
  EXPECT_TRUE(toLower(text.data()) && upperFirst(text.data()) && text == "Boom-3a[\xE4z") << text;
  EXPECT_TRUE(replaceChar(text.data(), 'o', '_') && text == "B__m-3a[\xE4z") << text;
  for (char* none : {text.data() + text.size(), static_cast<char*>(nullptr)}) {
    EXPECT_EQ(replaceChar(none, 'a', 'b'), none != nullptr);
    EXPECT_FALSE(toUpper(none) || toLower(none) || upperFirst(none) || isAllDigits(none));
  }
  EXPECT_TRUE(isAllDigits("0123456789") && isMixedCase("1b_C") && !isMixedCase(nullptr));
  EXPECT_FALSE(isAllDigits("1/") || isAllDigits("1:") || isMixedCase("a") || isMixedCase("A\xE4"));
}

}  // namespace tavrel::test
