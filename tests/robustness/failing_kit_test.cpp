// Commands of tavkit in which the nth allocation or file operation fails, for every n.
#include <gmock/gmock.h>

#include <map>

#include "compiler/run_driver.h"
#include "kit/frame/command.h"
#include "kit/frame/command_line.h"
#include "tests/robustness/failing_calls.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::test {
namespace {

/// What a command answers, and the files that it writes.
struct Answer {
  int code = kit::exitFailed;
  std::string results{};
  std::map<std::string, std::string> files{};

  bool operator==(const Answer&) const = default;
};

/// Runs commands on the example bank, whose directory becomes the current directory.
class FailingKit : public testing::Test {
 protected:
  FailingKit() {
    std::filesystem::copy(TAVREL_SOURCE_DIR "/examples", directory_.path());
    std::filesystem::current_path(directory_.path());
    const char* const arguments[] = {"tavrel", "demo.txt", nullptr};
    testing::internal::CaptureStdout();
    EXPECT_EQ(runTavrel(2, arguments), 0);
    testing::internal::GetCapturedStdout();
  }

  Answer run(const std::vector<std::string>& arguments, Fault fault = Fault::none,
             std::size_t call = 0) {
    std::filesystem::remove_all("out");
    Answer answer;
    {
      kit::Output output;
      machine = {fault, call};
      try {
        answer.code = kit::runCommandLine(arguments, output);
      } catch (const std::bad_alloc&) {
        machine.fault = Fault::none;
        output = {.results = {}, .messages = "as main reports it"};
      }
      machine.fault = Fault::none;
      answer.results = output.results;
      EXPECT_EQ(output.messages.empty(), answer.code != kit::exitFailed) << output.messages;
    }
    if (std::filesystem::exists("out")) {
      for (const auto& entry : std::filesystem::directory_iterator("out")) {
        answer.files[entry.path().filename().string()] = directory_.read(entry.path().string());
      }
    }
    return answer;
  }

  const TemporaryDirectory directory_;
};

TEST_F(FailingKit, AnswersRightOrNotAtAll) {
  const std::vector<std::string> commands[] = {{"list", "demo.tvb"},
                                               {"verify", "demo.tvb"},
                                               {"extract", "demo.tvb", "-o", "out"},
                                               {"diff", "demo.tvb", "demo.tvb"}};
  for (const std::vector<std::string>& command : commands) {
    const Answer whole = run(command);
    ASSERT_EQ(whole.code, kit::exitYes);
    for (const Fault fault :
         {Fault::oneAllocation, Fault::noMemory, Fault::noSpace, Fault::read, Fault::readAtEnd}) {
      for (std::size_t call = 1; call == 1 || machine.hasStruck; ++call) {
        SCOPED_TRACE(testing::Message()
                     << command[0] << ", fault " << static_cast<int>(fault) << " in " << call);
        const Answer answer = run(command, fault, call);
        if (answer.code == kit::exitFailed) {
          EXPECT_EQ(answer.results, "");
          EXPECT_THAT(answer.files, testing::IsSubsetOf(whole.files));
        } else {
          EXPECT_TRUE(answer == whole) << "exit code " << answer.code << '\n' << answer.results;
        }
        if (HasFailure()) {
          return;
        }
      }
    }
  }
}

// The JSON library allocates memory in destructors.
TEST(FailingKitDeathTest, EndsWellWhereNoExceptionCan) {
  const char* const arguments[] = {"tavkit", "--version"};
  EXPECT_EXIT(
      {
        kit::runTavkit(2, arguments);
        std::terminate();
      },
      testing::ExitedWithCode(2), "^tavkit: out of memory\n$");
}

}  // namespace
}  // namespace tavrel::test
