#include "foundation/file_name.h"

#include <gmock/gmock.h>

namespace tavrel::test {

TEST(FileNameTest, ChangesOnlyAnExtensionNearTheEndOfTheName) {
  std::string changed;
  for (const char* name : {"b.wav", "b", "b.", "b.aiff", "b.x.y", "a.b\\c", "a.b/c"}) {
    FileName file(name);
    EXPECT_TRUE(file.changeExtension("rsp4"));
    changed += file.name.get() + std::string(" ");
  }
  EXPECT_EQ(changed, "b.rsp4 b.rsp4 b.rsp4 b.aiff.rsp4 b.x.rsp4 a.b\\c.rsp4 a.b/c.rsp4 ");
}

TEST(FileNameTest, FailsWithoutANameOrRoomForAnExtensionAndDumpsWhatIsThere) {
  FileName file;
  EXPECT_TRUE(*file.getNameOnly() + *file.getExtensionOnly() == 0 && file.error == 0);
  EXPECT_TRUE(file.getNameAndPath() == nullptr && file.error == 5);
  EXPECT_FALSE(file.setName(nullptr) || file.setPath(nullptr) || file.splitNameAndPath(nullptr));
  EXPECT_TRUE(file.splitNameAndPath("c:\\s/d\\b.wav") && file.changeExtension("rsp4"));
  EXPECT_TRUE(file.splitNameAndPath(file.getNameAndPath())) << "a text of the object's own";
  testing::internal::CaptureStdout();
  std::ungetc('k', stdin);
  EXPECT_TRUE(file.dump());
  const std::string dumped = testing::internal::GetCapturedStdout();
  EXPECT_EQ(dumped.find("*\nThis"), 75U);
  EXPECT_THAT(dumped, testing::MatchesRegex(
                          "\\*+\nThis: \\w+\nname: b.wav\nname is at: \\w+ the pointer is at: "
                          "\\w+\npath: c:.s/d.\npath is at: \\w+\n\\*+\nAny key...\n"));
}

}  // namespace tavrel::test
