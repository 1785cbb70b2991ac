#include "foundation/console.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(ConsoleTest, PrintsPartsOfAllKindsAndLengthsAtOnce) {
  const TemporaryDirectory directory;
  std::FILE* const stream = std::fopen(directory.path("printed").c_str(), "wb");
  printLine(stream, "a", std::string_view("bc", 1), nullptr, INT64_MIN, 0, UINT32_MAX);
  printUnterminated(stream, std::string("\r"), -1);
  std::string expected = "ab-922337203685477580804294967295\n\r-1";
  // Around the 4,096 bytes that it collects before it writes.
  for (const std::size_t length : {4095, 4096, 4097, 1, 9000, 2}) {
    const std::string first(length, 'x');
    const std::string second(length % 5, 'y');
    printUnterminated(stream, first, second);
    expected += first + second;
    EXPECT_TRUE(directory.read("printed") == expected) << "up to a length of " << length;
  }
  std::fclose(stream);
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
