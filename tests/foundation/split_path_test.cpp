#include "foundation/split_path.h"

#include <gmock/gmock.h>

namespace tavrel::test {

TEST(SplitPathTest, SplitsAtBothSlashesAndTheLastDot) {
  const struct {
    const char *text, *stem, *name, *fullPath;
  } rows[] = {{"c:\\s\\b.wav", "b", "b.wav", "c:\\s\\b.wav"},
              {"c:b.wav", "c:b", "c:b.wav", "c:b.wav"},
              {"a/s\\b.c", "b", "b.c", "a/s\\b.c"},
              {"s.x\\b", "b", "b", "s.x\\b"},
              {"s\\", "", "", "s\\"},
              {"b.", "b", "b", "b"},
              {".wav", "", ".wav", ".wav"},
              {"b.old.sample", "b.old", "b.old.sam", "b.old.sam"},
              {"\\b.wav", "b", "b.wav", "\\b.wav"},
              {"/b.wav", "/b", "/b.wav", "/b.wav"},
              {"", "", "", ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    SplitPath path(row.text);
    EXPECT_STREQ(path.getStem(), row.stem);
    EXPECT_STREQ(path.getNameWithExtension(), row.name);
    EXPECT_STREQ(path.getFullPath(), row.fullPath);
  }
}

TEST(SplitPathTest, JoinsThePartsThatAreSet) {
  SplitPath path(nullptr);
  EXPECT_STREQ(path.getFullPath(), "");
  EXPECT_THAT((std::array{path.parse("old/name.wav"), path.setDirectory("a/"), path.setStem("b"),
                          path.setExtension("film")}),
              testing::Each(true));
  EXPECT_THAT((std::array{path.parse(nullptr), path.setStem(nullptr)}), testing::Each(false));
  EXPECT_STREQ(path.getFullPath(), "a/b.film");
  EXPECT_STREQ(path.getFullPath(), "a/b.film") << "the second time";
}

}  // namespace tavrel::test
