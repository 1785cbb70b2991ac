#include "tests/robustness/small_run.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>

#include "compiler/run_driver.h"
#include "platform/local_time.h"

namespace tavrel::test {

SmallRun::SmallRun() {
  // Where a path of the command line is lost, another script and other folders come into play.
  directory_.write("s.txt", "BankFileName b.tvb\n");
  for (const char* folder : {"in", "out"}) {
    std::filesystem::create_directory(directory_.path(folder));
  }
  for (const SmallFile& file : smallBuild()) {
    directory_.write(file.name == "s.txt" ? "in/s.txt" : file.name, file.content);
  }
  std::filesystem::current_path(directory_.path());
  stopClock({.wYear = 1999, .wMonth = 7, .wDay = 22, .wHour = 17, .wMinute = 36});
  EXPECT_NE(std::freopen("/dev/null", "r", stdin), nullptr);
}

SmallRun::~SmallRun() {
  restartClock();
  std::filesystem::current_path(before_);
}

RunResult SmallRun::run(const std::function<void()>& before, const std::function<void()>& after) {
  constexpr std::array<const char*, 9> kArguments{
      "tavrel", "s.txt", "scriptPath", "in/", "bankPath", "out/", "headerPath", "out/", nullptr};
  RunResult result;
  std::filesystem::remove("out/b.tvb");
  std::filesystem::remove("out/b.h");
  testing::internal::CaptureStdout();
  testing::internal::CaptureStderr();
  before();
  result.exitCode = runTavrel(kArguments.size() - 1, kArguments.data());
  after();
  result.standardOutput = testing::internal::GetCapturedStdout();
  result.standardError = testing::internal::GetCapturedStderr();
  if (result.exitCode == 0) {
    result.outputs = {directory_.read("out/b.tvb"), directory_.read("out/b.h")};
  }
  return result;
}

Outputs SmallRun::outputsWithout(std::size_t block) {
  std::vector<std::string> blocks = smallBlocks();
  blocks.erase(blocks.begin() + static_cast<std::ptrdiff_t>(block));
  directory_.write("in/s.txt", smallScript(blocks));
  const Outputs outputs = run().outputs;
  directory_.write("in/s.txt", smallScript());
  return outputs;
}

void expectFailure(const RunResult& result) {
  using testing::EndsWith;
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_THAT(result.standardOutput, testing::Not(testing::HasSubstr("Done!")));
  EXPECT_THAT(result.standardError, testing::AnyOf(EndsWith("Error: Failed to parse script...\n"),
                                                   EndsWith("Error: Failed to write bank...\n"),
                                                   EndsWith("Error: Failed to write header...\n")));
}

}  // namespace tavrel::test
