// What a command of tavkit is: how it is called, what its help says, and the function that runs it.
// The command line, the man page and the completions are all made from these records.
#pragma once

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace tavrel::kit {

class Arguments;
struct Output;

/// Exit codes of every command. A failure to answer is an exception, see kit/frame/failure.h.
enum ExitCode : int {
  exitYes = 0,     ///< done, or the answer is yes
  exitNo = 1,      ///< the answer is no: a check failed, two banks differ
  exitFailed = 2,  ///< the question could not be answered; nothing is on standard output
};

/// What a completion offers after an option or for an operand.
enum class Completion { none, file, folder, bank, script };

/// An option of a command.
struct CommandOption {
  std::string names{};               ///< "-o,--output": as typed, the short name first
  std::string value{};               ///< what its value is called in the help; empty for a flag
  std::string help{};                ///< one sentence without a full stop
  Completion completion{};           ///< of its value
  std::vector<std::string> words{};  ///< the only values that it takes; empty: any
};

/// Operands of a command: what is neither an option nor the value of one.
struct Operands {
  static constexpr std::size_t kAnyNumber = std::numeric_limits<int>::max();

  std::string synopsis{};  ///< "BANK [ID | DEFINE ...]"
  std::size_t fewest = 0;
  std::size_t most = 0;
  Completion completion{};
};

struct Command {
  std::string name;
  Operands operands;
  std::string summary{};      ///< one sentence without a full stop
  std::string description{};  ///< paragraphs for the man page, separated by an empty line
  std::string example{};      ///< one command line
  std::vector<CommandOption> options;
  int (*run)(const Arguments& arguments, Output& output);  ///< returns an `ExitCode`
};

/// Returns `first` followed by `second`.
inline std::vector<CommandOption> joined(std::vector<CommandOption> first,
                                         const std::vector<CommandOption>& second) {
  first.insert(first.end(), second.begin(), second.end());
  return first;
}

}  // namespace tavrel::kit
