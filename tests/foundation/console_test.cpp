#include "foundation/console.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(ConsoleTest, PrintsPartsAndLinesOf4096CharactersToASinkUntilItIsTakenAway) {
  struct : ConsoleSink {
    void write(std::FILE* stream, std::string_view text) override {
      printed += text.empty() ? "" : stream == stderr ? " error: " : " output: ";
      printed += text.size() > 100 ? std::to_string(text.size()) : std::string(text);
    }
    std::string printed;
  } sink;
  EXPECT_EQ(setConsoleSink(&sink), nullptr);
  printLine(stdout, "a", std::string_view("bc", 1), nullptr, INT64_MIN, 0, UINT32_MAX);
  for (const std::size_t length : {4094U, 4095U, 4096U, 4097U}) {
    printLine(stderr, std::string(length, 'x'), 1);
  }
  printUnterminated(stdout, "b", -1);
  EXPECT_EQ(setConsoleSink(nullptr), &sink);
  EXPECT_EQ(sink.printed,
            " output: ab-922337203685477580804294967295\n"
            " error: 4096 error: 4096 error: \n error: 4096 error: 1\n error: 4097 error: 1\n"
            " output: b-1");
}

}  // namespace tavrel::test
