#include "compiler/bank_script.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

bool storeAsset(BankScript& script, std::uint32_t paddedSize) {
  auto asset = std::make_unique<AssetData>();
  asset->paddedSize = paddedSize;
  return script.storeAsset(std::move(asset), std::make_unique<AssetEntry>());
}

TEST(BankScript, AnAssetBeyondTheLastIdOrAPrefixOf81CharactersIsRefused) {
  BankScript script("a.txt");
  EXPECT_FALSE(script.setHeaderPrefix(std::string(81, 'p').c_str()));
  for (int id = 0; id < 32768; ++id) {
    ASSERT_TRUE(storeAsset(script, 0)) << id;
  }
  EXPECT_FALSE(storeAsset(script, 0));
  script.useMemory(new std::uint8_t[]{'e', ' '}, 2);
  testing::internal::CaptureStderr();
  EXPECT_FALSE(script.parseUserAsset(script));
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "ERROR: Asset e_ is one too many, only 32768 assets allowed\n");
  script.freeData();
}

TEST(BankScript, ABankOf4GiBOrAHeaderWithoutABankIsRefusedAheadOfTheOldOne) {
  const TemporaryDirectory folder;
  BankScript script("a.txt");
  script.bankFileName.setName(folder.write("sfx.tvb", "an older bank").c_str());
  script.headerFileName.setName(folder.write("sfx.h", "an older header").c_str());
  // One byte more than can be padded to 32.
  ASSERT_TRUE(storeAsset(script, 0xFFFFFFFF - 31 - (4 + 44) + 1));
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_FALSE(script.writeBank());
  script.bankFileName.setName("no.tvb");
  EXPECT_FALSE(script.writeHeader());
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "ERROR: Bank of 4294967296 bytes is too long, only 4294967295 bytes allowed\n");
  EXPECT_EQ(folder.read("sfx.tvb") + folder.read("sfx.h"), "an older bankan older header");
}

}  // namespace
}  // namespace tavrel::test
