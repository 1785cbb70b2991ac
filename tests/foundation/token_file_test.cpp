#include "foundation/token_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

/// A token file over a block that ends exactly where the text does.
class TextInMemory : public TokenFile {
 public:
  explicit TextInMemory(const std::string& text) {
    auto* block = new std::uint8_t[text.size()];
    std::copy(text.begin(), text.end(), block);
    useMemory(block, text.size());
  }
  ~TextInMemory() { freeData(); }
};

/// Each token that is left with its line, then the line that stands at the end.
std::string allOf(TokenFile&& file) {
  std::string list;
  while (file.readToken()) {
    list += file.token.data() + ("@" + std::to_string(file.lineNumber)) + " ";
  }
  return list + std::to_string(file.lineNumber);
}

TEST(TokenFileTest, DeliversDelimitedTokensWithTheirLines) {
  const struct {
    const char *text, *expected;
  } cases[] = {
      {" \t ", "1"},
      {"; only a comment", "1"},
      {"foo;bar\r\n", "foo@1 2"},
      {"\ta;b\n;c\r\n;;d\n\t\te \t", "a@1 e@4 4"},
      {"\"two words\"\n", "\"two@1 words\"@1 1"},
      {"last ScriptEnd", "last@1 1"},
      {"a\xFF\v\x01=,#// ", "a\xFF\v\x01=,#//@1 1"},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(allOf(TextInMemory(c.text)), c.expected) << c.text;
  }
}

TEST(TokenFileTest, CountsLinesByTheirLineEndsIn16Bits) {
  for (const std::string oneLine : {"\r\n", "\r", "\n", "\n\n"}) {
    EXPECT_EQ(allOf(TextInMemory("a" + oneLine + "b ")), "a@1 b@2 2") << oneLine;
  }
  for (const std::string twoLines : {"\n\n\n", "\r\r", "\n\r", "\r\n\n", "\n \n"}) {
    EXPECT_EQ(allOf(TextInMemory("a" + twoLines + "b ")), "a@1 b@3 3") << twoLines;
  }
  EXPECT_EQ(allOf(TextInMemory(std::string(32767, '\r') + "a ")), "a@-32768 -32768");
}

TEST(TokenFileTest, TokensMayHave1024Characters) {
  const std::string longest(1024, 'x');
  EXPECT_EQ(allOf(TextInMemory("\r\n\r\n" + longest + "\r\n;")), longest + "@3 4");
  TextInMemory tooLong("\r\n\r\n" + longest + "123 next ");
  tooLong.fileName.setName("deep.txt");
  testing::internal::CaptureStderr();
  EXPECT_FALSE(tooLong.readToken());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "File: deep.txt Line #: 3 has an oversize token, only 1024 chars allowed per token\n");
  EXPECT_EQ(allOf(std::move(tooLong)), "23@3 next@3 3") << "goes on behind the 1025th character";
  TokenFile::TokenBuffer copy{"kept"};
  EXPECT_FALSE(TextInMemory("unfinished").readTokenInto(copy.data()));
  EXPECT_STREQ(copy.data(), "kept");
  EXPECT_TRUE(TextInMemory(longest + " ").readTokenInto(copy.data()) && copy.data() == longest);
}

TEST(TokenFileTest, NumbersAndFlagsComeFromWhatLeadsTheToken) {
  TextInMemory numbers("12abc abc 0x10 -7 +7 \v7 +-7 2147483648 -2147483649 10000000000000 99");
  std::int32_t number = 9;
  for (const std::int32_t expected : {12, 0, 0, -7, 7, 7, 0, INT32_MIN, INT32_MAX, 1316134912}) {
    EXPECT_TRUE(numbers.readNumber(number)) << numbers.token.data();
    EXPECT_EQ(number, expected) << numbers.token.data();  // modulo 2 to the power 32
  }
  EXPECT_FALSE(numbers.readNumber(number) || number != 1316134912) << "no delimiter";
  TextInMemory flags("1x 2 01 x -1 0");
  for (const int expected : {1, 9, 0, 9, 9, 9}) {
    std::uint8_t flag = 9;
    EXPECT_EQ(flags.readFlag(flag), expected != 9) << flags.token.data();
    EXPECT_EQ(flag, expected) << flags.token.data();
  }
}

TEST(TokenFileTest, IsTokenComparesWholeWordsInAnyCaseOfAToZUpToAZeroByte) {
  TextInMemory file(std::string("assetEND[\xC4\0b ", 13));
  EXPECT_TRUE(file.readToken() && file.isToken("AssetEnd[\xC4") && file.token[11] == 'b');
  for (const char* other : {"", "AssetEnd", "AssetEnd[\xC4 ", "AssetEnd{\xC4", "AssetEnd[\xE4"}) {
    EXPECT_FALSE(file.isToken(other)) << other;
  }
}

TEST(TokenFileTest, LoadsBytesAsTheyStandAndCountsLinesOn) {
  TemporaryDirectory directory;
  directory.write("script.txt", "a\r\n\rb\n");
  TokenFile file("script.txt", directory.path("").c_str());
  EXPECT_FALSE(file.readToken()) << "nothing is loaded";
  for (const int line : {3, 5}) {
    EXPECT_TRUE(file.load() && file.readToken() && file.readToken() && file.isToken("b"));
    file.rewind();
    EXPECT_TRUE(file.readToken() && file.isToken("a"));
    EXPECT_EQ(file.lineNumber, line) << "counts on, and not back";
    EXPECT_TRUE(file.freeData() && file.freeData());
  }
  file.setFile(directory.write("empty.txt", "").c_str());
  EXPECT_TRUE(file.load() && !file.readToken() && file.freeData());
}

TEST(TokenFileTest, AFileThatCannotBeLoadedIsReportedByItsFullName) {
  TemporaryDirectory directory;
  const std::string folder = directory.path("");
  testing::internal::CaptureStderr();
  EXPECT_FALSE(TokenFile("a.txt", folder.c_str()).load() || TokenFile(folder.c_str()).load());
  EXPECT_FALSE(TokenFile().load());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "File System Error: File \"" + folder + "a.txt\" Not Found\n" +
                "File System Error: File \"" + folder + "\" Not Found\n" +
                "File System Error: Unable to Allocate Memory (fileName is NULL)\n");
}

TEST(TokenFileTest, SkipsAndReadsLinesWithoutCountingThem) {
  for (const char* text : {"a b\nc ", "a\r\nc ", "a\n\nc ", "\rc "}) {
    TextInMemory file(text);
    EXPECT_TRUE(file.skipLine() && file.readToken() && file.isToken("c")) << text;
    file.rewind();
    EXPECT_TRUE(file.skipLine() && file.lineNumber == 1) << text;
  }
  for (const char* text : {"", "a ", "a\n", "a\r"}) {
    EXPECT_FALSE(TextInMemory(text).skipLine()) << text;
  }
  const std::string lines[] = {" a;b\r\n", std::string(4095, 'x'), "x\n", "\n"};
  TextInMemory file(lines[0] + lines[1] + lines[2] + lines[3] + "last");
  for (const std::string& line : lines) {
    EXPECT_TRUE(file.readLine() && file.line.data() == line) << line;
  }
  EXPECT_FALSE(file.readLine());
}

}  // namespace
}  // namespace tavrel::test
