// Fuzzes a check of a script. If it finds no error, the tool packs every block of the script, the
// bank passes verify, and a build makes the same one. A fixed script has nothing left to fix, and a
// script that tavkit makes for all the files has no errors. The other commands that read scripts
// and assets must answer. The input is what replaceBuild takes.
#include <algorithm>
#include <climits>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/run_driver.h"
#include "fuzz/kit_command.h"
#include "fuzz/memory_bound.h"
#include "fuzz/quiet_console.h"
#include "fuzz/replace_build.h"
#include "fuzz/require.h"
#include "fuzz/work_directory.h"
#include "kit/check/script_fix.h"
#include "kit/check/unified_diff.h"
#include "kit/frame/command_line.h"
#include "tests/support/packed_script.h"

namespace tavrel::fuzz {

namespace {

std::string contentOf(const std::string& name) {
  std::ifstream file(name, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Packs a script without errors. That its outputs can be written is taken for granted, so it isn't
/// packed if their names are too long for the host.
void requirePacked(const std::string& script) {
  const test::Wanted wanted = test::wantedBy(script);
  if (std::max(wanted.bank.size(), wanted.header().size()) > NAME_MAX) {
    return;
  }
  const char* const arguments[] = {"tavrel", "s.txt", nullptr};
  require(runTavrel(2, arguments) == 0);
  require(test::faultOfDefines(contentOf(wanted.header()), wanted.files.size()).empty());
  const std::string bank = contentOf(wanted.bank);
  kit::Output output;
  require(kit::runCommandLine({"verify", wanted.bank, "--script", "s.txt"}, output) == 0);
  std::filesystem::remove(wanted.bank);
  static const KitCommand build({"build", "s.txt"});
  require(build.run(output) == kit::exitYes);
  require(contentOf(wanted.bank) == bank);
}

/// Runs the commands whose answer nothing else proves.
void runOtherCommands() {
  static const KitCommand show({"show", "w.wav", "f.aif", "m.mid"});
  static const KitCommand deps({"deps", "s.txt"});
  kit::Output output;
  show.run(output);
  deps.run(output);
}

/// Fixes a script. Nothing must be left to fix, and a good script must stay good.
void requireFixed(const kit::RunPlan& plan, bool isGood) {
  const kit::FixedScript fixed = kit::fixScript(plan, {});
  if (fixed.fixCount > 0) {
    kit::writeFixed(plan, fixed);
    require(kit::fixScript(plan, {}).fixCount == 0);
  }
  require(kit::unifiedDiff("s.txt", fixed.text).empty() == (fixed.fixCount == 0));
  require(!isGood || fixed.left.count(kit::Severity::error) == 0);
}

/// Requires that a script for the files has no errors.
void checkNewScript() {
  static const KitCommand makeScript({"new", ".", "-o", "new.txt", "--adpcm"});
  kit::Output output;
  const kit::ExitCode code = makeScript.run(output);
  require(output.results.empty());
  if (code != kit::exitFailed) {
    require(kit::checkScript({.scriptPath = "new.txt"}, {}).count(kit::Severity::error) == 0);
  }
}

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  fuzz::silenceConsole();
  static const fuzz::WorkDirectory directory;

  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  const std::string script = fuzz::replaceBuild(input);
  const fuzz::MemoryBound bound(size, fuzz::LargeBlocks::refuse);
  static const fuzz::KitCommand quality({"quality", "s.txt"});
  kit::Output output;
  const kit::ExitCode measured = quality.run(output);
  const kit::RunPlan plan{.scriptPath = "s.txt"};
  const bool isGood =
      kit::checkScript(plan, {.lowestQuality = 40}).count(kit::Severity::error) == 0;
  if (isGood) {
    fuzz::requirePacked(script);
    fuzz::require(measured == kit::exitYes);
  }
  fuzz::runOtherCommands();
  fuzz::requireFixed(plan, isGood);
  fuzz::checkNewScript();
  return 0;
}
