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

TEST(BankScript, IdsAreThePlacesOfTheAssets) {
  BankScript script("a.txt");
  for (std::int16_t id = 0; id < 200; ++id) {
    auto entry = std::make_unique<AssetEntry>();
    auto asset = std::make_unique<AssetData>();
    const AssetEntry* const entryAddress = entry.get();
    ASSERT_TRUE(script.storeAsset(std::move(asset), std::move(entry)));
    EXPECT_EQ(script.entries.back().get(), entryAddress);
    EXPECT_EQ(script.assets.back()->id, id);
    EXPECT_EQ(script.assets.size(), script.entries.size());
    EXPECT_TRUE(script.setAssetOffset(id, 0xFFFFFFE0));
    EXPECT_EQ(script.entries.back()->offset, 0xFFFFFFE0);
  }
}

TEST(BankScript, ABankOf4GiBIsRefusedAheadOfTheOldOne) {
  const TemporaryDirectory folder;
  BankScript script("a.txt");
  script.bankFileName.setName(folder.write("sfx.tvb", "an older bank").c_str());
  auto asset = std::make_unique<AssetData>();
  AssetData& blob = *asset;
  ASSERT_TRUE(script.storeAsset(std::move(asset), std::make_unique<AssetEntry>()));
  blob.paddedSize = 0xFFFFFFFF - 4 - 44;  // the last offset still fits, the padding to 32 doesn't
  EXPECT_FALSE(script.writeBank());
  blob.paddedSize += 1;
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
