#include "compiler/names.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(Names, AnAssetIsNamedAfterItsFileInUpTo79Characters) {
  AssetData::Name name{};
  EXPECT_TRUE(assetName("a~b", "wav", name));
  EXPECT_STREQ(name.data(), "a~b_wav");
  const std::string longest(75, 'x');
  EXPECT_TRUE(assetName(longest, "wav", name));
  EXPECT_EQ(name.data(), longest + "_wav");
  EXPECT_FALSE(assetName(longest + "y", "mid", name));
  EXPECT_EQ(name.data(), longest + "_wav") << "unchanged";
}

TEST(Names, AGuardHasUpTo79Characters) {
  Guard guard{};
  EXPECT_TRUE(guardName("sfx~1" + std::string(71, 'a'), guard));
  EXPECT_EQ(guard.data(), "_SFX~1" + std::string(71, 'A') + "_H");
  EXPECT_FALSE(guardName(std::string(77, 'b'), guard));
  EXPECT_EQ(guard.data(), "_SFX~1" + std::string(71, 'A') + "_H") << "unchanged";
}

TEST(Names, ADefineIsInCapitalsWithoutTildesInTheAssetsName) {
  EXPECT_EQ(defineName("s~fx", "boom~1_wav"), "S~FX_BOOM_1_WAV");
  EXPECT_EQ(defineName("", ""), "_");
}

TEST(Names, AHeaderIsNamedAfterItsBankInItsOwnFolder) {
  FileName header("old.txt", "include/");
  nameHeader(header, "sfx.tvb");
  EXPECT_STREQ(header.getNameAndPath(), "include/sfx.h");
}

}  // namespace tavrel::test
