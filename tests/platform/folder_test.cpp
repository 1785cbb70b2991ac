#include "platform/folder.h"

#include <gmock/gmock.h>

#include <cerrno>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(Folder, ListsAllNamesSorted) {
  const TemporaryDirectory directory;
  std::filesystem::create_directory(directory.path("b"));
  for (const char* name : {"c", ".hidden", "..a", "A"}) {
    directory.write(name, "");
  }
  std::vector<std::string> names{"from before"};
  errno = ENOENT;  // of an earlier call
  EXPECT_FALSE(listFolder(directory.path().c_str(), names));
  EXPECT_THAT(names, testing::ElementsAre("..a", ".hidden", "A", "b", "c"));
  EXPECT_EQ(listFolder(directory.path("c").c_str(), names), std::errc::not_a_directory);
  EXPECT_THAT(names, testing::IsEmpty());
}

}  // namespace tavrel::test
