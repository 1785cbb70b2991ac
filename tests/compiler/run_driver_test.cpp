#include "compiler/run_driver.h"

#include <gmock/gmock.h>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(RunDriver, TestsTheNameOfTheProgramForAKeyword) {
  const TemporaryDirectory directory;
  const std::string script = directory.write("a.txt", "BankFileName x.tvb ");
  const std::string path = directory.path("");
  const char* const arguments[] = {"bankPath", script.c_str(), "headerPath", path.c_str(), nullptr};
  testing::internal::CaptureStdout();
  EXPECT_EQ(runTavrel(4, arguments), 0);
  EXPECT_THAT(testing::internal::GetCapturedStdout(),
              testing::HasSubstr("Bank Path:\t" + script + '\n'));
}

}  // namespace tavrel::test
