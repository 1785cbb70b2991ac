#include "platform/console_input.h"

#include <cstdio>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// Makes a file with `content` the standard input.
bool feed(const TemporaryDirectory& directory, const char* content) {
  return std::freopen(directory.write("input", content).c_str(), "rb", stdin) != nullptr;
}

TEST(ConsoleInput, TakesExactlyOneCharacter) {
  const TemporaryDirectory directory;
  ASSERT_TRUE(feed(directory, "ab"));
  EXPECT_TRUE(takeOneCharacter());
  EXPECT_EQ(std::getchar(), 'b');
  EXPECT_FALSE(takeOneCharacter()) << "at the end";
}

TEST(ConsoleInput, DoesNotUseTheBufferOfTheStream) {
  const TemporaryDirectory directory;
  ASSERT_TRUE(feed(directory, "ab"));
  EXPECT_EQ(std::getchar(), 'a');  // the stream reads ahead
  EXPECT_FALSE(takeOneCharacter());
}

}  // namespace tavrel::test
