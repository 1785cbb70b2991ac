#include "foundation/token_file.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// A token file over a block that ends exactly where the text does.
struct TextInMemory : TokenFile {
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
  const std::pair<std::string, const char*> cases[] = {
      {" \t; only a comment", "1"},
      {"\ta;b\n;c\r\n;;d\n\t\te;f\r\n", "a@1 e@4 5"},
      {"\"two words\"\xFF\v\x01=,#//\nScriptEnd", "\"two@1 words\"\xFF\v\x01=,#//@1 2"},
      {"a\r\nb\rc\nd\n\ne\n", "a@1 b@2 c@3 d@4 e@5 5"},
      {"a\n\n\nb\r\rc\n\rd\r\n\ne\n \nf ", "a@1 b@3 c@5 d@7 e@9 f@11 11"},
      {std::string(32767, '\r') + "a ", "a@-32768 -32768"}};
  for (const auto& [text, expected] : cases) {
    EXPECT_EQ(allOf(TextInMemory(text)), expected) << text;
  }
}

TEST(TokenFileTest, TokensMayHave1024Characters) {
  const std::string longest(1024, 'x');
  const std::string name(4097, 'n');  // longer than what a console line holds at once
  TextInMemory file(longest + "\r\n\r\n" + longest + "123 next");
  TokenFile::TokenBuffer copy;
  testing::internal::CaptureStderr();
  EXPECT_TRUE(file.fileName.setName(name.c_str()) && file.readTokenInto(copy.data()));
  EXPECT_FALSE(file.readTokenInto(copy.data()) || copy.data() != longest);
  EXPECT_EQ(
      testing::internal::GetCapturedStderr(),
      "File: " + name + " Line #: 3 has an oversize token, only 1024 chars allowed per token\n");
  EXPECT_EQ(allOf(std::move(file)), "23@3 3") << "goes on behind the 1025th character";
}

TEST(TokenFileTest, NumbersFlagsAndWordsAreReadFromTheToken) {
  TextInMemory numbers("12abc abc 0x10 -7 \v+7 +-7 2147483648 -2147483649 10000000000000 9");
  std::string values;
  for (std::int32_t number = 0; numbers.readNumber(number);) {
    values += std::to_string(number) + " ";
  }
  EXPECT_EQ(values, "12 0 0 -7 7 0 -2147483648 2147483647 1316134912 ");
  TextInMemory flags("1x 2 01 ");
  std::uint8_t flag = 9;
  EXPECT_TRUE(flags.readFlag(flag) && flag == 1 && !flags.readFlag(flag) && flag == 1);
  EXPECT_TRUE(flags.readFlag(flag) && flag == 0);
  TextInMemory word(std::string("aZ[\xC4\0b ", 7));
  EXPECT_TRUE(word.readToken() && word.isToken("Az[\xC4") && word.token[5] == 'b');
  EXPECT_FALSE(word.isToken("Az[") || word.isToken("Az{\xC4") || word.isToken("Az[\xC4 "));
}

TEST(TokenFileTest, LoadsBytesAsTheyStandOrReportsTheFullName) {
  TemporaryDirectory directory;
  const std::string folder = directory.path("");
  TokenFile file("a.txt", folder.c_str());
  testing::internal::CaptureStderr();
  EXPECT_FALSE(file.readToken() || file.load() || TokenFile().load());
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "File System Error: File \"" + folder + "a.txt\" Not Found\n" +
                "File System Error: Unable to Allocate Memory (fileName is NULL)\n");
  const std::string longest = ";" + std::string(4094, 'x');
  directory.write("a.txt", "a b\r\nc\n\n;d \n" + longest + "x\n\r");
  EXPECT_TRUE(file.load() && file.skipLine() && file.readToken() && file.isToken("c"));
  EXPECT_TRUE(file.skipLine() && file.lineNumber == 1 && file.readLine());
  EXPECT_TRUE(file.line.data() == std::string(";d \n") && file.readLine());
  EXPECT_TRUE(file.line.data() == longest && file.readLine() && file.line[0] == 'x');
  EXPECT_FALSE(file.skipLine() || file.readLine());
  file.lineNumber = 7;
  file.rewind();
  EXPECT_EQ(allOf(std::move(file)), "a@7 b@7 c@8 11");
  EXPECT_TRUE(file.freeData() && file.freeData() && file.rewind() && !file.readToken());
}

}  // namespace tavrel::test
