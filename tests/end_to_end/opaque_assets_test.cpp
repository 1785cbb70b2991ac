#include <gtest/gtest.h>

#include "tests/support/expected_run.h"

namespace tavrel::test {
namespace {

TEST(OpaqueAssets, EachKindIsCopiedWholeWithTheNumbersOfItsBlock) {
  ExpectedRun expected;
  expected.asset(kToneBank, "1", "twenty-one bytes long", "BankType Drum BANKTYPE Melodic", {1});
  expected.asset(kToneBank, "2", "1", "BankType Melodic BankType Drum", {0});
  expected.asset(kToneBank, "3", "", "", {0});
  expected.asset(kFxOutputBank, "4", "three");
  expected.asset(kFxProgramBank, "5", std::string("\r\n\0\x1A\xFF;", 6));
  expected.asset(kFxOutputBank, "6", "");
  expected.asset(kFxProgramBank, "7", "");
  expected.asset(kUserAsset, "8", "");
  expected.asset(kUserAsset, "9", "nine bytes",
                 "Parameter7 8 Parameter6 7 Parameter5 -6 Parameter4 +5 Parameter3 4x "
                 "Parameter2 3 Parameter1 2 Parameter0 1",
                 {1, 2, 3, 4, 5, -6, 7, 8});
  expected.asset(kUserAsset, "10", "seven b",
                 "parameter0 4294967295 Parameter1 0x10 Parameter2 loud Parameter3 -2147483648 "
                 "Parameter4 1 Parameter4 2147483647",
                 {-1, 0, 0, -2147483647 - 1, 2147483647});
  expectRun(expected);
}

}  // namespace
}  // namespace tavrel::test
