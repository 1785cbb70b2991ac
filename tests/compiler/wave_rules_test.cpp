#include "compiler/wave_rules.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(WaveRules, OnlyTheExtensionAifIsReadAsAiff) {
  EXPECT_TRUE(isAiffExtension("aif"));
  EXPECT_TRUE(isAiffExtension("AiF"));
  for (const char* other : {"aiff", "aif.w", "wav", ""}) {
    EXPECT_FALSE(isAiffExtension(other)) << other;
  }
  EXPECT_FALSE(isAiffExtension(nullptr));
}

TEST(WaveRules, OnlySoundsOf16BitsThatDoNotLoopAreCompressed) {
  EXPECT_TRUE(isCompressed(16, false, true));
  EXPECT_FALSE(isCompressed(16, false, false));
  EXPECT_FALSE(isCompressed(16, true, true));
  EXPECT_FALSE(isCompressed(8, false, true));
  EXPECT_FALSE(isCompressed(24, false, true));
}

}  // namespace tavrel::test
