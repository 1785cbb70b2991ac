#include "foundation/console.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

class ConsoleTest : public testing::Test {
 protected:
  ~ConsoleTest() override { std::fclose(stream_); }
  /// What has arrived in the file although the stream is still open.
  [[nodiscard]] std::string printed() const { return directory_.read("printed"); }

  const TemporaryDirectory directory_;
  std::FILE* const stream_ = std::fopen(directory_.path("printed").c_str(), "wb");
};

TEST_F(ConsoleTest, PrintsPartsOfAllKinds) {
  printLine(stream_, "a", std::string_view("bc", 1), nullptr, INT64_MIN, 0, UINT32_MAX);
  printUnterminated(stream_, std::string("\r"), -1);
  EXPECT_EQ(printed(), "ab-922337203685477580804294967295\n\r-1");
}

TEST_F(ConsoleTest, PrintsPartsAroundTheEdgeOfItsBuffer) {
  std::string expected;
  for (const std::vector<std::size_t>& lengths : std::vector<std::vector<std::size_t>>{
           {4095}, {4096}, {4097}, {4095, 1}, {4095, 2, 3}, {4096, 1}, {1, 4096}, {2, 9000, 3}}) {
    std::vector<std::string> texts;
    for (const std::size_t length : lengths) {
      texts.emplace_back(length, static_cast<char>('a' + texts.size()));
      expected += texts.back();
    }
    printParts(stream_, std::vector<LinePart>(texts.begin(), texts.end()));
    EXPECT_TRUE(printed() == expected) << "up to lengths of " << testing::PrintToString(lengths);
  }
}

TEST_F(ConsoleTest, PrintsToASinkUntilItIsTakenAway) {
  struct : ConsoleSink {
    void write(std::FILE* stream, std::string_view text) override {
      printed += (stream == stderr ? "error: " : "output: ") + std::string(text);
    }
    std::string printed;
  } sink;
  EXPECT_EQ(setConsoleSink(&sink), nullptr);
  printLine(stderr, "a", 1);
  printUnterminated(stream_, "b");
  EXPECT_EQ(setConsoleSink(nullptr), &sink);
  printLine(stream_, "c");
  EXPECT_EQ(sink.printed, "error: a1\noutput: b");
  EXPECT_EQ(printed(), "c\n");
}

}  // namespace tavrel::test
