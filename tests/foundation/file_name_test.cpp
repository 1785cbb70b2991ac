#include "foundation/file_name.h"

#include <regex>

#include "platform/console_input.h"
#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(FileNameTest, SplitsAtTheLastBackslashAndTheFirstDot) {
  const struct {
    const char *text, *name, *path, *nameOnly, *extension;
  } rows[] = {{"c:\\s\\b.wav", "b.wav", "c:\\s\\", "b", "wav"},
              {"s.x\\a/b", "a/b", "s.x\\", "a/b", ""},
              {"s.old/b", "s.old/b", "", "s", "old/b"},
              {"c:.x.sample", "c:.x.sample", "", "c:", "x.sam"},
              {"", "", "", "", ""}};
  FileName file;
  EXPECT_STREQ(file.getNameOnly(), "") << "without a name";
  EXPECT_STREQ(file.getExtensionOnly(), "") << "without a name";
  for (const auto& row : rows) {
    SCOPED_TRACE(row.text);
    EXPECT_TRUE(file.splitNameAndPath(row.text));
    EXPECT_STREQ(file.name.get(), row.name);
    EXPECT_STREQ(file.path.get(), row.path);
    EXPECT_STREQ(file.getNameOnly(), row.nameOnly);
    EXPECT_STREQ(file.getExtensionOnly(), row.extension);
    EXPECT_TRUE(file.splitNameAndPath(file.getNameAndPath())) << "a text of its own";
    EXPECT_STREQ(file.getNameAndPath(), row.text);
  }
  EXPECT_EQ(file.error, 0U);
}

TEST(FileNameTest, ChangesOnlyAnExtensionNearTheEndOfTheNameThatHasRoom) {
  const struct {
    const char *before, *extension, *after, *afterSplit;
  } rows[] = {{"b.wav", "rsp4", "b.rsp4", "b.wav"},
              {"b.wav", "mid", "b.mid", "b.mid"},
              {"b", "rsp4", "b.rsp4", "b"},
              {"b", "rsp45", "b", "b"},
              {"b.wav", nullptr, "b.wav", "b.wav"},
              {"b.", "rsp4", "b.rsp4", "b."},
              {"b.aiff", "rsp4", "b.aiff.rsp4", "b.aiff"},
              {"b.x.y", "rsp4", "b.x.rsp4", "b.x.y"},
              {"a.b/c", "rsp4", "a.b/c.rsp4", "a.b/c"},
              {"a.b\\c", "rsp4", "a.b\\c.rsp4", "c"},
              {"", "rsp4", ".rsp4", ""}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.before);
    FileName file(row.before);
    EXPECT_TRUE(file.changeExtension(row.extension));
    EXPECT_STREQ(file.name.get(), row.after);
    EXPECT_TRUE(file.splitNameAndPath(row.before));
    EXPECT_TRUE(file.changeExtension(row.extension));
    EXPECT_STREQ(file.name.get(), row.afterSplit) << "splitting leaves no margin";
  }
}

TEST(FileNameTest, FailsForNull) {
  for (const auto set : {&FileName::setName, &FileName::setPath, &FileName::splitNameAndPath}) {
    FileName file("b.wav", "s\\");
    EXPECT_FALSE((file.*set)(nullptr));
    EXPECT_EQ(file.error, 5U);
    file.error = 0;
    EXPECT_STREQ(file.getNameAndPath(), set == &FileName::setPath ? "b.wav" : nullptr);
    EXPECT_EQ(file.error, set == &FileName::setPath ? 0U : 5U);
  }
}

/// What `dump` prints, with "@" for each address. It waits for one key.
std::string dumped(const FileName& file) {
  const TemporaryDirectory directory;
  EXPECT_NE(std::freopen(directory.write("keys", "kx").c_str(), "rb", stdin), nullptr);
  const Printed printed = printedBy([&] { EXPECT_TRUE(file.dump()); });
  EXPECT_EQ(std::getchar(), 'x');
  EXPECT_FALSE(takeOneCharacter()) << "at the end";
  const std::regex address("(This: | at: )(0x)?[0-9A-Fa-f]+");
  return std::regex_replace(printed.output, address, "$1@");
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
