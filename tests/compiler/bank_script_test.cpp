#include "compiler/bank_script.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

TEST(BankScript, PrefixesOfMoreThan80CharactersAreRefused) {
  BankScript script("a.txt");
  EXPECT_TRUE(script.setHeaderPrefix(std::string(80, 'p').c_str()));
  EXPECT_TRUE(script.setHeaderPrefix(""));
  EXPECT_FALSE(script.setHeaderPrefix(std::string(81, 'p').c_str()));
}

TEST(BankScript, AnAssetBeyondTheLastIdIsNotStored) {
  BankScript script("a.txt");
  while (script.hasRoomForAsset()) {
    ASSERT_TRUE(script.storeAsset(std::make_unique<AssetData>(), std::make_unique<AssetEntry>()));
  }
  EXPECT_FALSE(script.storeAsset(std::make_unique<AssetData>(), std::make_unique<AssetEntry>()));
  EXPECT_EQ(script.assets.back()->id, 32767);
}

TEST(BankScript, ABankOf4GiBIsRefusedAheadOfTheOldOne) {
  const TemporaryDirectory folder;
  BankScript script("a.txt");
  script.bankFileName.setName(folder.write("sfx.tvb", "an older bank").c_str());
  auto asset = std::make_unique<AssetData>();
  asset->paddedSize = 0xFFFFFFFF - 31 - (4 + 44) + 1;  // one more than can be padded to 32
  ASSERT_TRUE(script.storeAsset(std::move(asset), std::make_unique<AssetEntry>()));
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  EXPECT_FALSE(script.writeBank());
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "ERROR: Bank of 4294967296 bytes is too long, only 4294967295 bytes allowed\n");
  EXPECT_EQ(folder.read("sfx.tvb"), "an older bank");
}

}  // namespace
}  // namespace tavrel::test
