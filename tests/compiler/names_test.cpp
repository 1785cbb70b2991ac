#include "compiler/names.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(Names, OfAssetsAndGuardsHaveUpTo79Characters) {
  const std::string longest(75, 'x');
  AssetData::Name name{};
  EXPECT_TRUE(assetName(longest, "wav", name));
  EXPECT_FALSE(assetName(longest + "y", "mid", name));
  EXPECT_EQ(name.data(), longest + "_wav") << "unchanged";
  Guard guard{};
  EXPECT_TRUE(guardName("~" + longest, guard));
  EXPECT_FALSE(guardName(longest + "yy", guard));
  EXPECT_EQ(guard.data(), "_~" + std::string(75, 'X') + "_H") << "unchanged";
}

TEST(Names, OfDefinesAreInCapitalsWithoutTildesInTheAssetsName) {
  EXPECT_EQ(defineName("s~fx", "boom~1_wav"), "S~FX_BOOM_1_WAV");
}

TEST(Names, OfHeadersKeepTheirPath) {
  FileName header("old.txt", "include/");
  nameHeader(header, "sfx.tvb");
  EXPECT_STREQ(header.getNameAndPath(), "include/sfx.h");
}

}  // namespace tavrel::test
