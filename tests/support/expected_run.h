// What a run of the real tool must print, answer and leave on disk, and the one check of it all.
// A test states what is special about its run; the rest is that of a script `a.txt` which names
// the bank `sfx.tvb` and gives no paths.
#pragma once

#include <string>
#include <vector>

#include "tests/support/expected_bank.h"
#include "tests/support/expected_header.h"
#include "tests/support/temporary_directory.h"
#include "tests/support/tool_run.h"

namespace tavrel::test {

/// How far a run gets.
enum class Outcome { parseFails, bankFails, headerFails, done };

struct ExpectedRun {
  std::vector<std::string> arguments{"a.txt"};
  std::string scriptFile = "a.txt";  ///< with its path, as the banner shows it
  std::string bankPath{};
  std::string headerPath{};

  std::string reading{};   ///< standard output between the banner and the bank's line
  std::string problems{};  ///< standard error, without the closing line of a failed run
  std::string writing{};   ///< the lines of the blobs
  Outcome outcome = Outcome::done;

  std::string bankName = "sfx.tvb";
  std::string headerName = "sfx.h";
  std::string baseName = "sfx";
  std::string prefix = "SFX";
  ExpectedBank bank{};
  std::vector<ExpectedDefine> defines{};
};

/// The lines that open a run, the last one of them a rule.
std::string expectedBanner(const ExpectedRun& expected);

/// Runs the tool in `folder`, and compares both streams, the exit code and every file: the bank and
/// the header are there if the run gets that far, and all else is as it was. Repeats a run during
/// which the minute changed, for the sake of the stamp in the header.
void expectRun(const TemporaryDirectory& folder, const ExpectedRun& expected,
               const ToolRunOptions& options = {});

}  // namespace tavrel::test
