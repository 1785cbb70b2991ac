#include "foundation/split_path.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(SplitPath, TakesNamesApart) {
  const struct {
    const char* text;
    const char* stem;
    const char* extension;
    const char* directory;
    const char* fullPath;
  } rows[] = {
      {"boom.wav", "boom", "wav", "", "boom.wav"},
      {"c:\\snd\\boom.wav", "boom", "wav", "c:\\snd\\", "c:\\snd\\boom.wav"},
      {"c:boom.wav", "c:boom", "wav", "", "c:boom.wav"},
      {"snd/boom.wav", "boom", "wav", "snd/", "snd/boom.wav"},
      {"snd\\a/boom.wav", "boom", "wav", "snd\\a/", "snd\\a/boom.wav"},
      {"snd.old\\boom", "boom", "", "snd.old\\", "snd.old\\boom"},
      {"snd\\", "", "", "snd\\", "snd\\"},
      {"boom", "boom", "", "", "boom"},
      {"boom.", "boom", "", "", "boom"},
      {".wav", "", "wav", "", ".wav"},
      {"boom.old.wav", "boom.old", "wav", "", "boom.old.wav"},
      {"boom.sample", "boom", "sam", "", "boom.sam"},
      {"\\boom.wav", "boom", "wav", "\\", "\\boom.wav"},
      {"/boom.wav", "/boom", "wav", "", "/boom.wav"},
      {"/", "/", "", "", "/"},
      {"", "", "", "", ""},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    SplitPath path(row.text);
    EXPECT_STREQ(path.getStem(), row.stem);
    EXPECT_STREQ(path.getFullPath(), row.fullPath);
    const std::string extension = row.extension;
    EXPECT_EQ(path.getNameWithExtension(), row.stem + (extension.empty() ? "" : "." + extension));
    path.setStem("");
    path.setExtension("");
    EXPECT_STREQ(path.getFullPath(), row.directory);
  }
}

TEST(SplitPath, NullChangesNothing) {
  SplitPath path(nullptr);
  EXPECT_STREQ(path.getFullPath(), "");
  EXPECT_TRUE(path.setDirectory("snd/"));
  EXPECT_TRUE(path.setStem("boom"));
  EXPECT_TRUE(path.setExtension("sample"));
  EXPECT_FALSE(path.parse(nullptr));
  EXPECT_FALSE(path.setStem(nullptr));
  EXPECT_STREQ(path.getFullPath(), "snd/boom.sample");
}

TEST(SplitPath, KeepsLongNamesWhole) {
  const std::string text = std::string(3000, 'd') + "/" + std::string(300, 's') + ".wav";
  EXPECT_EQ(SplitPath(text.c_str()).getFullPath(), text);
}

}  // namespace tavrel::test
