#include "foundation/token_file.h"

#include <gmock/gmock.h>

#include "tests/support/bytes.h"
#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

struct TextInMemory : TokenFile {
  explicit TextInMemory(const std::string& text) {
    EXPECT_TRUE(useMemory(blockOf(text).release(), text.size()));
  }
  ~TextInMemory() { freeData(); }
};

/// Each token that is left with its line and offset, and a "!" for each false result.
std::string allOf(TokenFile& file) {
  std::string list;
  TokenFile::TokenBuffer copy;
  for (bool isRead = true; isRead || file.tokenStart() < file.text().size();) {
    isRead = file.readTokenInto(copy.data());
    list += (isRead ? copy.data() : "!") + ("@" + std::to_string(file.lineNumber)) + ':' +
            std::to_string(file.tokenStart()) + ' ';
  }
  return list;
}

TEST(TokenFileTest, DeliversDelimitedTokensWithTheirPlaces) {
  const std::string tooLong(1025, 'x');
  const std::pair<std::string, std::string> rows[] = {
      {"", "!@1:0 "},
      {" \t; only a comment", "!@1:18 "},
      {"\ta;b\n;c\r\n;;d\n\t\te;f\r\n", "a@1:1 e@4:15 !@5:20 "},
      {"\"two words\"\xFF\v\x01=,#//\nScriptEnd",
       "\"two@1:0 words\"\xFF\v\x01=,#//@1:5 !@2:20 !@2:29 "},
      {"a\n\n\nb\r\rc\n\rd\r\n\ne\n \nf ", "a@1:0 b@3:4 c@5:7 d@7:10 e@9:14 f@11:18 !@11:20 "},
      {std::string("aZ\0b ", 5), "aZ@1:0 !@1:5 "},
      {std::string(32767, '\r') + "a ", "a@-32768:32767 !@-32768:32769 "},
      {tooLong.substr(1) + " y", tooLong.substr(1) + "@1:0 !@1:1025 !@1:1026 "},
      {tooLong + "23 y ", "!@1:0 23@1:1025 y@1:1028 !@1:1030 "}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.second);
    TextInMemory file(row.first);
    EXPECT_EQ(printedBy([&] { EXPECT_EQ(allOf(file), row.second); }).errors.empty(),
              !row.first.starts_with(tooLong));
    EXPECT_EQ(file.text(), row.first);
  }
}

TEST(TokenFileTest, ReadsNumbersAsFarAsTheyAreDecimal) {
  TextInMemory file("12abc abc 0x10 -7 \v+7 \f9:8/ +-7 10000000000000 2147483648 -2147483649 8");
  std::vector<std::int32_t> values;
  for (std::int32_t number = 99; file.readNumber(number);) {
    values.push_back(number);
  }
  EXPECT_THAT(values,
              testing::ElementsAre(12, 0, 0, -7, 7, 9, 0, 1316134912, INT32_MIN, INT32_MAX));
}

TEST(TokenFileTest, ReadsFlagsFromTheFirstCharacterAndComparesUpToAZeroByte) {
  TextInMemory file(std::string("1x 2 01 / aZ\0b ", 15));
  std::uint8_t flag = 9;
  for (const auto& [read, value] :
       {std::pair{true, 1}, {false, 1}, {true, 0}, {false, 0}, {false, 0}, {false, 0}}) {
    EXPECT_EQ(file.readFlag(flag), read) << file.token.data();
    EXPECT_EQ(flag, value) << file.token.data();
  }
  EXPECT_TRUE(file.isToken("Az"));
  EXPECT_FALSE(file.isToken(nullptr));
}

TEST(TokenFileTest, LoadsAFileAndReadsItAgainOrReportsIt) {
  const TemporaryDirectory directory;
  TokenFile file("a.txt", "missing/");
  EXPECT_EQ(printedBy([&] { EXPECT_FALSE(file.load() || TokenFile().load()); }).errors,
            "File System Error: File \"missing/a.txt\" Not Found\n"
            "File System Error: Unable to Allocate Memory (fileName is NULL)\n");
  EXPECT_FALSE(file.setFile(nullptr));
  EXPECT_TRUE(file.setFile(directory.write("a.txt", "a\r\nb ").c_str()));
  EXPECT_TRUE(file.load());
  EXPECT_EQ(allOf(file), "a@1:0 b@2:3 !@2:5 ");
  file.rewind();
  EXPECT_EQ(allOf(file), "a@2:0 b@3:3 !@3:5 ");
  EXPECT_TRUE(file.freeData() && file.rewind() && TokenFile::freeBlock(nullptr));
  EXPECT_FALSE(file.readToken());
  file.useMemory(nullptr, 0);
  EXPECT_STREQ(file.fileName.getNameAndPath(), "");
}

TEST(TokenFileTest, SkipsAndReadsLines) {
  const std::string longest(4095, 'x');
  TextInMemory file("a b\r\nc\r\rd\n" + longest + "y\nz\n\r");
  EXPECT_TRUE(file.skipLine() && file.skipLine());
  for (const std::string& line : {std::string("\rd\n"), longest, std::string("y\n")}) {
    EXPECT_TRUE(file.readLine());
    EXPECT_EQ(file.line.data(), line);
  }
  EXPECT_TRUE(file.skipLine());
  EXPECT_FALSE(file.skipLine()) << "nothing follows the first character of the line end";
  EXPECT_FALSE(file.readLine()) << "nothing is left";
  EXPECT_EQ(file.lineNumber, 1);
}

}  // namespace tavrel::test
