// Runs the small build in this process, so that a test can make the system under it fail. Its
// folder is the current directory as long as the object lives, and the clock stands still.
#pragma once

#include <filesystem>
#include <functional>
#include <string>

#include "tests/support/small_build.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

struct Outputs {
  std::string bank;
  std::string header;
  bool operator==(const Outputs&) const = default;
};

struct RunResult {
  int exitCode = -1;
  std::string standardOutput;
  std::string standardError;
  Outputs outputs;  // empty behind a failed run
};

class SmallRun {
 public:
  SmallRun();
  ~SmallRun();
  SmallRun(const SmallRun&) = delete;
  SmallRun& operator=(const SmallRun&) = delete;

  /// `before` and `after` are called with nothing but the run between them.
  RunResult run(
      const std::function<void()>& before = [] {}, const std::function<void()>& after = [] {});

  /// What a run leaves without one of the blocks.
  Outputs outputsWithout(std::size_t block);

 private:
  std::filesystem::path before_ = std::filesystem::current_path();
  TemporaryDirectory directory_;
};

/// Has the run told that it failed, and nothing else?
void expectFailure(const RunResult& result);

}  // namespace tavrel::test
