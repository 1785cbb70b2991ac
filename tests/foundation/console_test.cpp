#include "foundation/console.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(ConsoleTest, PrintsPartsOfAllKindsAtOnce) {
  const TemporaryDirectory directory;
  std::FILE* const stream = std::fopen(directory.path("printed").c_str(), "wb");
  const std::string longest(5000, 'x');
  printLine(stream, "a", std::string_view("bc", 1), nullptr, INT64_MIN, 0, UINT32_MAX);
  printUnterminated(stream, longest, -1);
  EXPECT_EQ(directory.read("printed"), "ab-922337203685477580804294967295\n" + longest + "-1");
  std::fclose(stream);
}

TEST(ConsoleTest, PrintsLinesOf4096CharactersToASinkUntilItIsTakenAway) {
  struct : ConsoleSink {
    void write(std::FILE* stream, std::string_view text) override {
      printed += text.empty() ? "" : stream == stderr ? " error: " : " output: ";
      printed += text.size() > 100 ? std::to_string(text.size()) : std::string(text);
    }
    std::string printed;
  } sink;
  EXPECT_EQ(setConsoleSink(&sink), nullptr);
  for (const std::size_t length : {4094U, 4095U, 4096U, 4097U}) {
    printLine(stderr, std::string(length, 'x'), 1);
  }
  printUnterminated(stdout, "b");
  EXPECT_EQ(setConsoleSink(nullptr), &sink);
  EXPECT_EQ(sink.printed,
            " error: 4096 error: 4096 error: \n error: 4096 error: 1\n error: 4097 error: 1\n"
            " output: b");
}

}  // namespace tavrel::test
