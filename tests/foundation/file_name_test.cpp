#include "foundation/file_name.h"

#include <regex>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(FileNameTest, SplitsAtTheLastBackslashAndTheFirstDot) {
  const struct {
    const char *text, *name, *path, *nameOnly, *extension;
  } rows[] = {{"c:\\s\\b.wav", "b.wav", "c:\\s\\", "b", "wav"},
              {"s\\a/b.c", "a/b.c", "s\\", "a/b", "c"},
              {"s.x\\b", "b", "s.x\\", "b", ""},
              {"s.old/b", "s.old/b", "", "s", "old/b"},
              {"b.", "b.", "", "b", ""},
              {"c:.x.sample", "c:.x.sample", "", "c:", "x.sam"},
              {"", "", "", "", ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    FileName file("old.name", "old\\");
    EXPECT_TRUE(file.splitNameAndPath(row.text));
    EXPECT_STREQ(file.name.get(), row.name);
    EXPECT_STREQ(file.path.get(), row.path);
    EXPECT_STREQ(file.getNameOnly(), row.nameOnly);
    EXPECT_STREQ(file.getExtensionOnly(), row.extension);
    EXPECT_TRUE(file.splitNameAndPath(file.getNameAndPath())) << "a text of its own";
    EXPECT_STREQ(file.getNameAndPath(), row.text);
  }
}

TEST(FileNameTest, ChangesOnlyAnExtensionNearTheEndOfTheName) {
  const std::pair<const char*, const char*> rows[] = {
      {"b.wav", "b.rsp4"},       {"b", "b.rsp4"},         {"b.", "b.rsp4"},
      {"b.aiff", "b.aiff.rsp4"}, {"b.x.y", "b.x.rsp4"},   {".", ".rsp4"},
      {"a.b\\c", "a.b\\c.rsp4"}, {"a.b/c", "a.b/c.rsp4"}, {"", ".rsp4"}};
  for (const auto& [before, after] : rows) {
    FileName file(before);
    EXPECT_TRUE(file.changeExtension("rsp4"));
    EXPECT_STREQ(file.name.get(), after);
  }
}

TEST(FileNameTest, ChangesNoExtensionWithoutRoomForIt) {
  FileName file("b");
  EXPECT_TRUE(file.changeExtension("rsp45"));
  EXPECT_TRUE(file.changeExtension(nullptr));
  EXPECT_STREQ(file.name.get(), "b");
  for (const auto& [extension, after] : {std::pair{"rsp4", "b.wav"}, {"mid", "b.mid"}}) {
    EXPECT_TRUE(file.splitNameAndPath("b.wav"));
    EXPECT_TRUE(file.changeExtension(extension));
    EXPECT_STREQ(file.name.get(), after) << "splitting leaves no margin";
  }
}

TEST(FileNameTest, FailsForNullAndWithoutAName) {
  for (const auto set : {&FileName::setName, &FileName::setPath, &FileName::splitNameAndPath}) {
    FileName file("b.wav", "s\\");
    EXPECT_FALSE((file.*set)(nullptr));
    EXPECT_EQ(file.error, 5U);
    EXPECT_STREQ(file.getNameAndPath(), set == &FileName::setPath ? "b.wav" : nullptr);
  }
  FileName nameless;
  EXPECT_STREQ(nameless.getNameOnly(), "");
  EXPECT_STREQ(nameless.getExtensionOnly(), "");
  EXPECT_EQ(nameless.error, 0U);
  EXPECT_EQ(nameless.getNameAndPath(), nullptr);
  EXPECT_EQ(nameless.error, 5U);
}

/// What `dump` prints, with "@" for each address. It waits for one key.
std::string dumped(const FileName& file) {
  const TemporaryDirectory directory;
  EXPECT_NE(std::freopen(directory.write("keys", "kx").c_str(), "rb", stdin), nullptr);
  testing::internal::CaptureStdout();
  EXPECT_TRUE(file.dump());
  EXPECT_EQ(std::getchar(), 'x');
  const std::regex address("(This: | at: )(0x)?[0-9A-Fa-f]+");
  return std::regex_replace(testing::internal::GetCapturedStdout(), address, "$1@");
}

TEST(FileNameTest, DumpsTheTextsThatItHas) {
  FileName file("b.wav", "s\\");
  file.getNameOnly();
  file.getNameAndPath();
  file.getExtensionOnly();
  const std::string border = std::string(76, '*') + "\n";
  EXPECT_EQ(dumped(file),
            border +
                "This: @\nname: b.wav\nname is at: @ the pointer is at: @\n"
                "path: s\\\npath is at: @\nnameAndPath: s\\b.wav\nnameAndPath is at: @\n"
                "nameOnly: b\nnameOnly is at: @\nextensionOnly: wav\nextensionOnly is at: @\n" +
                border + "Any key...\n");
  EXPECT_FALSE(file.splitNameAndPath(nullptr));
  EXPECT_EQ(dumped(file), border + "This: @\n" + border + "Any key...\n") << "nothing is kept";
}

}  // namespace tavrel::test
