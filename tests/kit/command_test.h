// What the tests of tavkit's commands share: a folder of their own, which is the current one, and
// the output of the last command.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "compiler/run_driver.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/command_line.h"
#include "kit/frame/json.h"
#include "tests/support/temporary_directory.h"

namespace tavrel::kit {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class CommandTest : public testing::Test {
 protected:
  CommandTest() { fs::current_path(folder_.path()); }
  ~CommandTest() override { fs::current_path(fs::temp_directory_path()); }

  /// Runs tavkit with all these arguments.
  int run(const Lines& arguments, const Lines& more = {}) {
    Lines all = arguments;
    all.insert(all.end(), more.begin(), more.end());
    const int code = runCommandLine(all, output_ = {});
    fs::current_path(folder_.path());
    EXPECT_TRUE(code != 2 || output_.results.empty()) << output_.results;
    return code;
  }

  /// Runs tavrel, and returns whether it succeeds.
  static bool runTool(std::vector<const char*> arguments) {
    const CapturedConsole silence;
    arguments.insert(arguments.begin(), "tavrel");
    arguments.push_back(nullptr);
    return runTavrel(static_cast<int>(arguments.size() - 1), arguments.data()) == 0;
  }

  /// Writes a file, and makes its folder if it isn't there.
  void write(const std::string& name, const std::string& content) const {
    fs::create_directories(fs::absolute(name).parent_path());
    folder_.write(name, content);
  }

  /// Returns the names of all files and folders in a folder and below it.
  static std::set<std::string> filesIn(const std::string& folder) {
    std::set<std::string> names;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
      names.insert(entry.path().lexically_relative(folder).generic_string());
    }
    return names;
  }

  struct Answer {
    Lines arguments;
    std::string message;  ///< a part of what is printed
    int code = 2;
  };

  /// Expects the answers of a command, and that it writes nothing.
  void expectAnswers(const Lines& command, const std::vector<Answer>& answers) {
    const std::set<std::string> before = filesIn(".");
    for (const auto& [arguments, message, code] : answers) {
      SCOPED_TRACE(testing::PrintToString(arguments));
      EXPECT_EQ(run(command, arguments), code);
      EXPECT_THAT(output_.messages, testing::HasSubstr(message));
      EXPECT_EQ(filesIn("."), before);
    }
  }

  /// Returns what the JSON document of `tavkit check` lists: "code line:column", separated by
  /// blanks.
  [[nodiscard]] std::string problems() const {
    std::string problems;
    const Json document = Json::parse(output_.results);
    for (const Json& one : document["diagnostics"]) {
      problems += (problems.empty() ? "" : " ") + one["code"].get<std::string>() + ' ' +
                  one["line"].dump() + ':' + one["column"].dump();
    }
    return problems;
  }

  const test::TemporaryDirectory folder_;
  Output output_;
};

}  // namespace tavrel::kit
