// Runs in which the nth allocation or file operation fails, for every n.
#include <gmock/gmock.h>

#include <algorithm>
#include <regex>

#include "compiler/run_driver.h"
#include "platform/local_time.h"
#include "tests/robustness/failing_calls.h"
#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

/// Packs the example bank in this process. Its directory becomes the current directory, and the
/// clock is stopped.
class FailingCall : public testing::Test {
 protected:
  FailingCall() {
    std::filesystem::copy(TAVREL_SOURCE_DIR "/examples", directory_.path());
    std::filesystem::current_path(directory_.path());
    script_ = directory_.read("demo.txt");
    // If a path of the command line is lost, this script is read instead.
    directory_.write("demo.txt", "BankFileName demo.tvb\n");
    stopClock({.wYear = 1999, .wMonth = 7, .wDay = 22, .wHour = 17, .wMinute = 36});
    EXPECT_NE(std::freopen("/dev/null", "r", stdin), nullptr);
  }

  /// Returns the bank and the header of a run in which the `call`th call fails, or nothing if the
  /// run fails.
  std::string run(const std::string& script, Fault fault = Fault::none, std::size_t call = 0) {
    const char* const arguments[] = {"tavrel", "demo.txt",   "scriptPath", "its/", "bankPath",
                                     "its/",   "headerPath", "its/",       nullptr};
    std::filesystem::remove_all("its");
    std::filesystem::create_directory("its");
    directory_.write("its/demo.txt", script);
    int exitCode = 0;
    const Printed printed = printedBy([&] {
      machine = {fault, call};
      exitCode = runTavrel(std::size(arguments) - 1, arguments);
      machine.fault = Fault::none;
      EXPECT_EQ(machine.blocks, 0) << "leaked";
    });
    if (exitCode == 0) {
      return directory_.read("its/demo.tvb") + directory_.read("its/demo.h");
    }
    EXPECT_EQ(exitCode, 1);
    EXPECT_THAT(printed.output, testing::Not(testing::HasSubstr("Done!")));
    EXPECT_THAT(printed.errors,
                testing::ContainsRegex("Failed to (parse script|write (bank|header))...\n$"));
    return "";
  }

  const TemporaryDirectory directory_;
  std::string script_;
};

TEST_F(FailingCall, NeverLeavesADamagedBankAfterDone) {
  // Blocks that allocate memory after their last token silently lose their asset if it runs out:
  // the waves and the sequence. If a file fails, only the sequence is lost silently.
  constexpr std::size_t kInputs = 9;  // without the sequence
  constexpr std::size_t kOutputs = 2;
  const struct {
    const char* name;
    Fault fault;
    const char* mayLoseItsAsset;
    std::size_t leastFailures;
  } rows[] = {{"one allocation", Fault::oneAllocation, "WaveFile|MidiFileType0", 100},
              {"no more memory", Fault::noMemory, "WaveFile|MidiFileType0", 100},
              {"disk full", Fault::noSpace, "MidiFileType0", kOutputs},
              {"close", Fault::close, "MidiFileType0", kOutputs},
              {"read", Fault::read, "MidiFileType0", kInputs},
              {"file shrinks", Fault::readAtEnd, "MidiFileType0", kInputs}};
  for (const auto& [name, fault, mayLoseItsAsset, leastFailures] : rows) {
    std::vector<std::string> acceptable{run(script_)};
    const std::regex block(std::string("(") + mayLoseItsAsset + ")[^]*?AssetEnd");
    for (std::sregex_iterator it(script_.begin(), script_.end(), block), end; it != end; ++it) {
      acceptable.push_back(
          run(script_.substr(0, static_cast<std::size_t>(it->position())) + it->suffix().str()));
    }
    EXPECT_EQ(std::count(acceptable.begin(), acceptable.end(), ""), 0);
    EXPECT_EQ(run(script_, Fault::inPieces), acceptable.front());
    acceptable.emplace_back();  // of a run that has failed
    std::size_t failures = 0;
    for (std::size_t call = 1; call == 1 || machine.hasStruck; ++call) {
      SCOPED_TRACE(testing::Message() << name << " in call " << call);
      const std::string outputs = run(script_, fault, call);
      failures += outputs.empty() ? 1 : 0;
      EXPECT_TRUE(std::find(acceptable.begin(), acceptable.end(), outputs) != acceptable.end())
          << "a damaged bank or header of " << outputs.size() << " bytes";
    }
    EXPECT_GE(failures, leastFailures) << name << ": are the calls still counted?";
  }
}

}  // namespace tavrel::test
