#include "compiler/names.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(Names, ReplaceLongerOnesUnlessThereIsNoRoom) {
  AssetData::Name name{};
  name.fill('x');
  EXPECT_TRUE(assetName("boom", "wav", name));
  EXPECT_STREQ(name.data(), "boom_wav");
  EXPECT_TRUE(assetName(std::string(75, 'n'), "wav", name));
  EXPECT_FALSE(assetName(std::string(76, 'm'), "wav", name));
  EXPECT_EQ(name.data(), std::string(75, 'n') + "_wav");
}

}  // namespace tavrel::test
