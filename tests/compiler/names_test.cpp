#include "compiler/names.h"

#include <gtest/gtest.h>

namespace tavrel::test {

TEST(Names, OfDefinesAreInCapitalsWithoutTildesInTheAssetsName) {
  EXPECT_EQ(defineName("s~fx", "boom~1_wav"), "S~FX_BOOM_1_WAV");
}

}  // namespace tavrel::test
