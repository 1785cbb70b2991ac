// Commands of tavkit in which the nth allocation or file operation fails, for every n.
#include <fcntl.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <map>

#include "compiler/run_driver.h"
#include "kit/frame/command.h"
#include "kit/frame/command_line.h"
#include "tests/robustness/failing_calls.h"
#include "tests/support/bank_builder.h"
#include "tests/support/midi_builder.h"
#include "tests/support/printed.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {

constexpr const char* kToFix = "BankFileName b.tvb";  // a script without its last line end

/// Runs commands on the example bank, whose directory becomes the current directory.
class FailingKit : public testing::Test {
 protected:
  FailingKit() {
    std::filesystem::copy(TAVREL_SOURCE_DIR "/examples", directory_.path());
    std::filesystem::current_path(directory_.path());
    setenv("SOURCE_DATE_EPOCH", "0", 1);
    const char* const arguments[] = {"tavrel", "demo.txt", nullptr};
    printedBy([&] { EXPECT_EQ(runTavrel(2, arguments), 0); });
  }

  /// Sets the exit code. Returns the files that the command writes, and its results under "".
  std::map<std::string, std::string> run(const std::vector<std::string>& arguments,
                                         Fault fault = Fault::none, std::size_t call = 0) {
    std::filesystem::remove_all("out");
    std::filesystem::remove_all("built");
    std::filesystem::create_directory("built");
    directory_.write("fix.txt", kToFix);
    kit::Output output;
    machine = {fault, call};
    try {
      code_ = kit::runCommandLine(arguments, output);
      blocks_ = machine.blocks;
    } catch (const std::bad_alloc&) {
      machine.fault = Fault::none;
      output = {.results = {}, .messages = "as main reports it"};
      code_ = kit::exitFailed;
    }
    machine.fault = Fault::none;
    EXPECT_TRUE(code_ != kit::exitFailed || !output.messages.empty());
    std::map<std::string, std::string> answer{{"", output.results}};
    if (const std::string script = directory_.read("fix.txt"); script != kToFix) {
      answer["fix.txt"] = script;
    }
    for (const char* folder : {"out", "built"}) {
      std::error_code isMissing;
      for (const auto& entry : std::filesystem::directory_iterator(folder, isMissing)) {
        answer[entry.path().string()] = directory_.read(entry.path().string());
      }
    }
    if (std::filesystem::is_regular_file("out")) {
      answer["out"] = directory_.read("out");
    }
    return answer;
  }

  const TemporaryDirectory directory_;
  int code_ = 0;
  std::ptrdiff_t blocks_ = 0;  ///< of memory, that the last command has left
};

TEST_F(FailingKit, AnswersRightOrNotAtAll) {
  const std::vector<std::string> commands[] = {
      {"list", "demo.tvb"},
      {"verify", "demo.tvb"},
      {"verify", "demo.tvb", "--script", "demo.txt"},
      {"quality", "demo.txt"},
      {"extract", "demo.tvb", "-o", "out"},
      {"extract", "demo.tvb", "-o", "out", "--script", "out/demo.txt"},
      {"diff", "demo.tvb", "demo.tvb"},
      {"report", "demo.tvb", "-o", "out"},
      {"show", "boom.wav"},
      {"show", "engine.aif"},
      {"show", "theme.mid"},
      {"deps", "demo.txt"},
      {"build", "demo.txt", "--bank-dir", "built", "--header-dir", "built", "--depfile",
       "built/demo.d", "--stamp", "built/stamp"},
      {"check", "--fix", "fix.txt"},
      {"explain", "adpcm-loop"},
      {"new", ".", "-o", "out"},
  };
  for (const std::vector<std::string>& command : commands) {
    auto whole = run(command);
    ASSERT_EQ(code_, kit::exitYes);
    EXPECT_EQ(run(command, Fault::inPieces), whole) << command[0];
    EXPECT_LE(blocks_, 2) << command[0] << " leaks: the output has two texts at most";
    for (const Fault fault : {Fault::oneAllocation, Fault::noMemory, Fault::noSpace, Fault::close,
                              Fault::read, Fault::readAtEnd}) {
      // Readers of the tool take a file for one that can't be opened.
      const bool mayMisjudge = command[0] == "new" && fault == Fault::oneAllocation;
      if (command[0] == "report" && (fault == Fault::oneAllocation || fault == Fault::noMemory)) {
        continue;  // has a test of its own
      }
      bool hasFailed = false;
      for (std::size_t call = 1; (call == 1 || machine.hasStruck) && !HasFailure(); ++call) {
        SCOPED_TRACE(testing::Message()
                     << command[0] << ", fault " << static_cast<int>(fault) << " in " << call);
        auto answer = run(command, fault, call);
        hasFailed = hasFailed || code_ == kit::exitFailed;
        if (code_ == kit::exitFailed) {
          EXPECT_EQ(std::exchange(answer[""], whole[""]), "");
          EXPECT_THAT(answer, testing::IsSubsetOf(whole));
        } else if (!mayMisjudge) {
          EXPECT_EQ(code_, kit::exitYes);
          EXPECT_EQ(answer, whole);
        }
      }
      if (fault == Fault::noSpace) {
        EXPECT_EQ(hasFailed, whole.size() > 1) << command[0] << ": whether it writes files";
      }
    }
  }
}

constexpr int kNotStruck = 3;  // an exit code that tavkit doesn't have

/// Makes a report in a process of its own. Returns its exit code, or `kNotStruck` if the report
/// needed fewer calls.
int reportInChild(Fault fault, std::size_t call) {
  const pid_t child = fork();
  if (child == 0) {
    dup2(open("messages", O_WRONLY | O_TRUNC), STDERR_FILENO);
    const char* const arguments[] = {"tavkit", "report", "small.tvb", "-o", "out"};
    machine = {fault, call};
    const int code = kit::runTavkit(std::size(arguments), arguments);
    std::_Exit(machine.hasStruck ? code : kNotStruck);
  }
  int status = 0;
  return waitpid(child, &status, 0) == child && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

std::ptrdiff_t filesHere() { return std::distance(std::filesystem::directory_iterator("."), {}); }

// The JSON library allocates memory in destructors. If that fails, only the end of the program is
// left.
TEST_F(FailingKit, MakesAWholeReportOrNone) {
  const std::string song =
      midi(96).track(events().tempo(0, 500000).note(0, 1, 60, 9).endOfTrack(96));
  directory_.write("small.tvb", bankOf({{1, "wave", {8000, 1, 8, 0, 1, 3}}, {2, song, {96}}}));
  directory_.write("messages", "");
  const std::string whole = run({"report", "small.tvb", "-o", "out"})["out"];
  ASSERT_EQ(code_, kit::exitYes);
  const std::ptrdiff_t files = filesHere();
  for (const Fault fault : {Fault::oneAllocation, Fault::noMemory}) {
    int code = kit::exitYes;
    for (std::size_t call = 1; code != kNotStruck && !HasFailure(); ++call) {
      SCOPED_TRACE(testing::Message() << "fault " << static_cast<int>(fault) << " in " << call);
      std::filesystem::remove("out");
      code = reportInChild(fault, call);
      const bool hasFailed = code == kit::exitFailed;
      EXPECT_THAT(code, testing::AnyOf(kit::exitYes, kit::exitFailed, kNotStruck));
      EXPECT_EQ(directory_.read("messages").empty(), !hasFailed);
      EXPECT_EQ(filesHere(), files - (hasFailed ? 1 : 0));
      EXPECT_TRUE(hasFailed || directory_.read("out") == whole);
    }
  }
}

}  // namespace tavrel::test
