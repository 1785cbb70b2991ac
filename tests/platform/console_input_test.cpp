#include "platform/console_input.h"

#include <cstdio>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(ConsoleInput, TakesExactlyOneCharacterWithoutTheBufferOfTheStream) {
  const TemporaryDirectory directory;
  ASSERT_NE(std::freopen(directory.write("input", "ab").c_str(), "rb", stdin), nullptr);
  EXPECT_TRUE(takeOneCharacter());
  EXPECT_EQ(std::getchar(), 'b');
  std::rewind(stdin);
  EXPECT_EQ(std::getchar(), 'a');  // the stream reads ahead
  EXPECT_FALSE(takeOneCharacter()) << "at the end";
}

}  // namespace tavrel::test
