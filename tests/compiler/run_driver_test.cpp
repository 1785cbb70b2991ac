#include "compiler/run_driver.h"

#include <gmock/gmock.h>

#include <cstdio>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

TEST(RunDriver, AProgramNamedLikeAKeywordSetsThatPathAndOnlyAFailedRunWaitsForAKey) {
  const TemporaryDirectory folder;
  for (const auto& [text, exitCode] : {std::pair{"BankFileName x.tvb ", 0}, {"", 1}}) {
    const std::string script = folder.write("a.txt", text);
    const std::string path = folder.path("");
    const char* const arguments[] = {"bankPath", script.c_str(), "headerPath", path.c_str(),
                                     nullptr};
    ASSERT_NE(std::freopen(TAVREL_SOURCE_DIR "/README.md", "rb", stdin), nullptr);
    testing::internal::CaptureStdout();
    EXPECT_EQ(runTavrel(4, arguments), exitCode);
    EXPECT_EQ(std::ftell(stdin), exitCode) << "characters read";
    EXPECT_THAT(testing::internal::GetCapturedStdout(),
                testing::HasSubstr("Bank Path:\t" + script + '\n'));
  }
}

}  // namespace tavrel::test
