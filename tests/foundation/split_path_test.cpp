#include "foundation/split_path.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(SplitPathTest, SplitsAtBothSlashesAndTheLastDotAndJoinsThePartsThatAreSet) {
  const struct {
    const char *text, *stem, *name, *fullPath;
  } rows[] = {{"c:\\s\\b.wav", "b", "b.wav", "c:\\s\\b.wav"},
              {"s\\a/b.c", "b", "b.c", "s\\a/b.c"},
              {"s.x\\b", "b", "b", "s.x\\b"},
              {"b.", "b", "b", "b"},
              {".wav", "", ".wav", ".wav"},
              {"b.old.sample", "b.old", "b.old.sam", "b.old.sam"},
              {"\\b.wav", "b", "b.wav", "\\b.wav"},
              {"/b.wav", "/b", "/b.wav", "/b.wav"},
              {"", "", "", ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    SplitPath path("old/old.old");
    EXPECT_TRUE(path.parse(row.text));
    EXPECT_FALSE(path.parse(nullptr)) << "changes nothing";
    EXPECT_FALSE(path.setStem(nullptr)) << "changes nothing";
    EXPECT_STREQ(path.getStem(), row.stem);
    EXPECT_STREQ(path.getNameWithExtension(), row.name);
    EXPECT_STREQ(path.getFullPath(), row.fullPath);
    EXPECT_TRUE(path.setDirectory("a/"));
    EXPECT_TRUE(path.setStem("b"));
    EXPECT_TRUE(path.setExtension("film"));
    EXPECT_STREQ(path.getFullPath(), "a/b.film");
  }
}

}  // namespace tavrel::test
