#include "foundation/console.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

namespace tavrel::test {

TEST(ConsoleTest, LinesComeOutWholeOnTheStreamAskedFor) {
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  printLine(stdout, "a", static_cast<const char*>(nullptr), std::string("b%s"), std::int16_t{-1},
            std::uint32_t{4294967295U}, INT64_MIN);
  printText(stdout, "no end", 0);
  std::string expected;
  for (const std::size_t size : {0U, 4095U, 4096U, 4097U, 10000U}) {
    const std::string text(size, 'x');
    printLine(stderr, text, ">", text);
    expected += text + ">" + text + "\n";
  }
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "ab%s-14294967295-9223372036854775808\nno end0");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), expected);
}

}  // namespace tavrel::test
