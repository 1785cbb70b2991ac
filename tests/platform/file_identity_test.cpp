#include "platform/file_identity.h"

#include "tests/support/temporary_directory.h"

namespace tavrel::test {

namespace fs = std::filesystem;

TEST(FileIdentity, OtherCaseExchangesLetters) {
  EXPECT_EQ(inOtherCase("aZ@[`{0Az.\xC4"), "Az@[`{0aZ.\xC4");
}

#ifndef _WIN32
TEST(FileIdentity, CaseIsIgnoredWhereTheFolderIsFoundInTheOtherCase) {
  const TemporaryDirectory directory;
  const bool isIgnored = ignoresCase(directory.path("").c_str());
  for (const char* folder : {"aB", "Cd", "12"}) {
    fs::create_directory(directory.path(folder));
  }
  std::error_code isThere;
  fs::create_symlink("aB", directory.path("Ab"), isThere);
  EXPECT_TRUE(ignoresCase(directory.path("aB").c_str()));
  EXPECT_EQ(ignoresCase(directory.path("Cd").c_str()), isIgnored);
  EXPECT_FALSE(ignoresCase(directory.path("12").c_str()));
  EXPECT_FALSE(ignoresCase(directory.path("missing").c_str()));
}
#endif

}  // namespace tavrel::test
