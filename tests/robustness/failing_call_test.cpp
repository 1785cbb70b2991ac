// Each allocation of a run and each call on a file fails in its turn.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>

#include "compiler/run_driver.h"
#include "platform/local_time.h"
#include "tests/robustness/failing_calls.h"
#include "tests/support/small_build.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

struct Row {
  const char* name;
  Fault fault;
  std::size_t firstLost;  // the first of the blocks up to the sequence that may lose their asset
  std::size_t leastFailures;
};

constexpr std::size_t kSequence = 3;  // its block

const Row kRows[] = {
    {"OneAllocation", Fault::oneAllocation, 0, 100},  {"NoMemory", Fault::noMemory, 0, 100},
    {"NoSpaceLeft", Fault::noSpace, kSequence, 1},    {"CloseFails", Fault::close, kSequence, 1},
    {"SeekFails", Fault::seek, kSequence, 1},         {"ReadFails", Fault::read, kSequence, 1},
    {"FileHasShrunk", Fault::readAtEnd, kSequence, 1}};

/// The small build, run in this process so that the machine under it can fail. Its folder is the
/// current directory, and the clock stands still, from then on.
class FailingCall : public testing::TestWithParam<Row> {
 protected:
  FailingCall() {
    for (const SmallFile& file : smallBuild()) {
      directory_.write(file.name, file.content);
    }
    std::filesystem::current_path(directory_.path());
    std::filesystem::create_directory("in");
    std::filesystem::create_directory("out");
    // Where a path of the command line is lost, another script and other folders come into play.
    directory_.write("s.txt", "BankFileName b.tvb\n");
    stopClock({.wYear = 1999, .wMonth = 7, .wDay = 22, .wHour = 17, .wMinute = 36});
    EXPECT_NE(std::freopen("/dev/null", "r", stdin), nullptr);
  }

  /// The bank and the header of a run in which the `call`th call fails; nothing if the run does.
  std::string run(const std::string& script, Fault fault = Fault::none, std::size_t call = 0) {
    const char* const arguments[] = {"tavrel", "s.txt",      "scriptPath", "in/",  "bankPath",
                                     "out/",   "headerPath", "out/",       nullptr};
    directory_.write("in/s.txt", script);
    std::filesystem::remove("out/b.tvb");
    std::filesystem::remove("out/b.h");
    testing::internal::CaptureStdout();
    testing::internal::CaptureStderr();
    const std::ptrdiff_t blocksBefore = blocksHeld();
    breakCall(fault, call);
    const int exitCode = runTavrel(std::size(arguments) - 1, arguments);
    hasStruck_ = repairCalls();
    EXPECT_EQ(blocksHeld(), blocksBefore) << "leaked";
    const std::string told =
        testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
    if (exitCode == 0) {
      return directory_.read("out/b.tvb") + directory_.read("out/b.h");
    }
    EXPECT_EQ(exitCode, 1);
    EXPECT_THAT(told, testing::Not(testing::HasSubstr("Done!")));
    EXPECT_THAT(told, testing::ContainsRegex("Failed to (parse script|write (bank|header))...\n$"));
    return "";
  }

  bool hasStruck_ = false;

 private:
  TemporaryDirectory directory_;
};

TEST_P(FailingCall, NeverLeavesADamagedBankBehindDone) {
  // Blocks that need memory behind their last token lose their asset without a word when there is
  // none: the three waves and the sequence. Of failing files only the sequence says nothing.
  std::vector<std::string> acceptable{run(smallScript())};
  for (std::size_t lost = GetParam().firstLost; lost <= kSequence; ++lost) {
    acceptable.push_back(run(smallScript(lost)));
  }
  EXPECT_THAT(acceptable, testing::Not(testing::Contains("")));
  acceptable.emplace_back();  // what a run leaves that says it has failed
  std::size_t failures = 0;
  for (std::size_t call = 1; call == 1 || hasStruck_; ++call) {
    SCOPED_TRACE("call " + std::to_string(call));
    const std::string outputs = run(smallScript(), GetParam().fault, call);
    failures += outputs.empty() ? 1 : 0;
    EXPECT_THAT(acceptable, testing::Contains(outputs));
  }
  EXPECT_GE(failures, GetParam().leastFailures) << "are the calls still counted?";
}

INSTANTIATE_TEST_SUITE_P(, FailingCall, testing::ValuesIn(kRows),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace tavrel::test
