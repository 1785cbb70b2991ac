#include <gtest/gtest.h>

#include <cstdio>

#include "compiler/bank_script.h"
#include "platform/local_time.h"
#include "tests/support/expected_header.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

void store(BankScript& script, const char* name, std::uint32_t paddedSize) {
  auto asset = std::make_unique<AssetData>();
  std::snprintf(asset->name.data(), asset->name.size(), "%s", name);
  asset->paddedSize = paddedSize;
  ASSERT_TRUE(script.storeAsset(std::move(asset), std::make_unique<AssetEntry>()));
}

bool writeQuietly(BankScript& script, const std::string& expectedOutput) {
  testing::internal::CaptureStdout();
  const bool written = script.writeHeader();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), expectedOutput);
  return written;
}

TEST(HeaderWriter, EveryByteFollowsFromTheAssetsTheBankAndTheClock) {
  stopClock({.wYear = 1999, .wMonth = 7, .wDay = 22, .wHour = 17, .wMinute = 36});
  const TemporaryDirectory folder;
  const std::string path = folder.path() + "/";
  BankScript script("a.txt");
  script.bankFileName.setName("Sfx.tvb");
  script.bankFileName.setPath(path.c_str());
  script.headerFileName.setName("Sfx.h");
  script.headerFileName.setPath(path.c_str());
  script.setHeaderPrefix("sn~d");
  store(script, "Boom~1_w~v", 300);
  store(script, "\xE4-b_a.b", 20);
  script.assets.back()->id = -7;
  folder.write("Sfx.h", "an older header");

  EXPECT_FALSE(writeQuietly(script, ""));  // there is no bank
  EXPECT_EQ(folder.read("Sfx.h"), "an older header");

  const std::string bank(1024, 'b');
  folder.write("Sfx.tvb", bank);
  const std::string line = "Writing Header File: Sfx.h\n";
  EXPECT_TRUE(writeQuietly(script, line));
  const std::vector<ExpectedDefine> defines{{"BOOM_1_W_V", 0}, {"\xE4-B_A.B", -7}};
  const std::string stamp = "7/22/1999 5:36 pm";
  EXPECT_EQ(folder.read("Sfx.h"), expectedHeader("Sfx", "SN~D", 320, 1024 - 320, defines, stamp));
  EXPECT_EQ(folder.read("Sfx.tvb"), bank);

  script.setHeaderPrefix("");
  EXPECT_TRUE(writeQuietly(script, line));
  EXPECT_EQ(folder.read("Sfx.h"), expectedHeader("Sfx", "", 320, 1024 - 320, defines, stamp));
  restartClock();
}

}  // namespace
}  // namespace tavrel::test
