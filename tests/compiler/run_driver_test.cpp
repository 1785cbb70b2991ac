#include "compiler/run_driver.h"

#include <gmock/gmock.h>

#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(RunDriver, TestsTheNameOfTheProgramForAKeyword) {
  const TemporaryDirectory directory;
  const std::string script = directory.write("a.txt", "BankFileName x.tvb ");
  const std::string path = directory.path("");
  const char* const arguments[] = {"bankPath", script.c_str(), "headerPath", path.c_str(), nullptr};
  const Printed printed = printedBy([&] { EXPECT_EQ(runTavrel(4, arguments), 0); });
  EXPECT_THAT(printed.output, testing::HasSubstr("Bank Path:\t" + script + '\n'));
}

}  // namespace tavrel::test
