// Each read, write and close of a run fails in its turn.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>

#include "tests/robustness/failing_files.h"
#include "tests/robustness/small_run.h"

namespace tavrel::test {
namespace {

struct Row {
  const char* name;
  FileFault fault;
  bool mayFail;
};

constexpr Row kRows[] = {
    {"NoSpaceLeft", FileFault::noSpace, true},
    {"WriteInterrupted", FileFault::writeInterrupted, false},
    {"WriteCutShort", FileFault::writeCutShort, false},
    {"CloseFails", FileFault::closeFails, true},
    {"SeekFails", FileFault::seekFails, true},
    {"ReadFails", FileFault::readFails, true},
    {"FileHasShrunk", FileFault::readAtEnd, true},
    {"ReadInterrupted", FileFault::readInterrupted, false},
    {"ReadCutShort", FileFault::readCutShort, false},
};

class FailingFileCalls : public testing::TestWithParam<Row> {};

TEST_P(FailingFileCalls, NeverLeaveADamagedBankBehindDone) {
  SmallRun small;
  const Outputs whole = small.run().outputs;
  const Outputs withoutMidi = small.outputsWithout(3);  // that block fails without a word

  std::size_t call = 0;
  std::size_t failed = 0;
  for (bool struck = true; struck;) {
    const RunResult result =
        small.run([&] { failFiles(GetParam().fault, ++call); }, [&] { struck = restoreFiles(); });
    SCOPED_TRACE("call " + std::to_string(call));
    if (result.exitCode == 0) {
      EXPECT_THAT(result.outputs, testing::AnyOf(whole, withoutMidi));
    } else {
      expectFailure(result);
      ++failed;
    }
  }
  std::printf("%zu calls, %zu of them end the run\n", call - 1, failed);
  EXPECT_GT(call, 1U) << "no such call any more";
  EXPECT_EQ(failed > 0, GetParam().mayFail);
}

INSTANTIATE_TEST_SUITE_P(, FailingFileCalls, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace tavrel::test
