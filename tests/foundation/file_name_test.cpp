#include "foundation/file_name.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(FileNameTest, SplitsAtTheLastBackslashAndTheFirstDot) {
  const struct {
    const char *text, *name, *path, *nameOnly, *extensionOnly;
  } cases[] = {
      {"boom.wav", "boom.wav", "", "boom", "wav"},
      {"snd\\boom.wav", "boom.wav", "snd\\", "boom", "wav"},
      {"c:\\snd\\boom.wav", "boom.wav", "c:\\snd\\", "boom", "wav"},
      {"c:boom.wav", "c:boom.wav", "", "c:boom", "wav"},
      {"snd/boom.wav", "snd/boom.wav", "", "snd/boom", "wav"},
      {"snd\\a/boom.wav", "a/boom.wav", "snd\\", "a/boom", "wav"},
      {"snd.old\\boom", "boom", "snd.old\\", "boom", ""},
      {"snd.old/boom", "snd.old/boom", "", "snd", "old/b"},
      {"snd\\", "", "snd\\", "", ""},
      {"boom", "boom", "", "boom", ""},
      {"boom.", "boom.", "", "boom", ""},
      {".wav", ".wav", "", "", "wav"},
      {"boom.old.wav", "boom.old.wav", "", "boom", "old.w"},
      {"boom.sample", "boom.sample", "", "boom", "sampl"},
      {"", "", "", "", ""},
  };
  for (const auto& c : cases) {
    FileName file;
    ASSERT_TRUE(file.splitNameAndPath(c.text));
    const char* const joined = file.getNameAndPath();
    EXPECT_STREQ(file.name.get(), c.name) << c.text;
    EXPECT_STREQ(file.path.get(), c.path) << c.text;
    EXPECT_STREQ(file.getNameOnly(), c.nameOnly) << c.text;
    EXPECT_STREQ(file.getExtensionOnly(), c.extensionOnly) << c.text;
    EXPECT_TRUE(file.splitNameAndPath(joined)) << "a text of the object's own";
    EXPECT_STREQ(file.getNameAndPath(), c.text) << "disturbed by the other results";
  }
}

TEST(FileNameTest, ChangesOnlyAnExtensionNearTheEndOfTheName) {
  std::string changed;
  for (const char* name : {"boom.wav", "boom", "boom.", "boom.aiff", "boom.sample", "bo.x.y", "a/b",
                           "a.b\\c", "a.b/c", ""}) {
    FileName file(name);
    EXPECT_TRUE(file.changeExtension("h"));
    changed += file.name.get() + std::string(" ");
  }
  EXPECT_EQ(changed,
            "boom.h boom.h boom.h boom.aiff.h boom.sample.h bo.x.h a/b.h a.b\\c.h a.b/c.h .h ");
  FileName grown("boom.aiff");
  EXPECT_TRUE(grown.changeExtension("sf2x"));
  EXPECT_STREQ(grown.name.get(), "boom.aiff.sf2x") << "the margin has room for a dot and four";
  ASSERT_TRUE(grown.splitNameAndPath("snd\\boom.wav"));
  EXPECT_TRUE(grown.changeExtension("h") && grown.changeExtension("sf2x"));
  EXPECT_STREQ(grown.name.get(), "boom.h") << "a name without a margin has room for three";
}

TEST(FileNameTest, JoinsWithoutASeparatorAndFailsWithoutAName) {
  FileName file("boom.wav", "snd");
  EXPECT_STREQ(file.getNameAndPath(), "sndboom.wav");
  file.clear();
  EXPECT_EQ(file.error, 0U);
  EXPECT_STREQ(file.getNameOnly(), "");
  EXPECT_STREQ(file.getExtensionOnly(), "");
  EXPECT_EQ(file.getNameAndPath(), nullptr);
  EXPECT_EQ(file.error, 5U);
  EXPECT_TRUE(file.setName("boom"));
  EXPECT_STREQ(file.getNameAndPath(), "boom");
  EXPECT_FALSE(file.setName(nullptr) || file.setPath(nullptr) || file.splitNameAndPath(nullptr));
  EXPECT_FALSE(file.name || file.path);
}

TEST(FileNameTest, DumpShowsWhatIsThereAndEndsWithoutAKey) {
  TemporaryDirectory directory;
  ASSERT_TRUE(std::freopen(directory.write("no key", "").c_str(), "r", stdin));
  FileName file("boom.wav");
  const std::string border(76, '*');
  const void* const addresses[] = {&file, file.name.get(), file.getNameOnly()};
  char body[300];
  std::snprintf(body, sizeof body,
                "\nThis: %p\nname: boom.wav\nname is at: %p the pointer is at: %p\n"
                "nameOnly: boom\nnameOnly is at: %p\n",
                addresses[0], addresses[1], addresses[0], addresses[2]);
  testing::internal::CaptureStdout();
  EXPECT_TRUE(file.dump());
  EXPECT_EQ(testing::internal::GetCapturedStdout(), border + body + border + "\nAny key...\n");
}

}  // namespace tavrel::test
