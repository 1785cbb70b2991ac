// Each allocation of a run fails in its turn, alone or with all behind it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <vector>

#include "tests/robustness/failing_memory.h"
#include "tests/robustness/small_run.h"

namespace tavrel::test {
namespace {

class FailingAllocation : public testing::TestWithParam<Shortage> {};

TEST_P(FailingAllocation, NeverLeavesADamagedBankBehindDone) {
  SmallRun small;
  // Blocks that need memory behind their last token lose their asset without a word when there is
  // none: the three waves and the sequence. Nothing else is ever lost.
  std::vector<Outputs> acceptable{small.run().outputs};
  for (std::size_t lost = 0; lost < 4; ++lost) {
    acceptable.push_back(small.outputsWithout(lost));
  }
  std::size_t allocation = 0;
  std::size_t failed = 0;
  for (bool hasFailed = true; hasFailed;) {
    ++allocation;
    std::ptrdiff_t blocksLeft = 0;
    const RunResult result = small.run(
        [&] {
          blocksLeft = -blocksHeld();
          failMemory(allocation, GetParam());
        },
        [&] {
          hasFailed = restoreMemory();
          blocksLeft += blocksHeld();
        });
    SCOPED_TRACE("allocation " + std::to_string(allocation));
    EXPECT_EQ(blocksLeft, 0) << "leaked";
    if (result.exitCode != 0) {
      expectFailure(result);
      ++failed;
    } else {
      EXPECT_THAT(acceptable, testing::Contains(result.outputs));
    }
  }
  std::printf("%zu allocations, %zu of them end the run\n", allocation - 1, failed);
  EXPECT_GT(failed, 100U) << "does the run still allocate through operator new?";
}

INSTANTIATE_TEST_SUITE_P(, FailingAllocation, testing::Values(Shortage::once, Shortage::lasting),
                         [](const auto& row) {
                           return row.param == Shortage::once ? "Once" : "FromThenOn";
                         });

}  // namespace
}  // namespace tavrel::test
