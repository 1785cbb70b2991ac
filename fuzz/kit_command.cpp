#include "fuzz/kit_command.h"

#include <algorithm>
#include <exception>
#include <string_view>

#include "fuzz/require.h"
#include "kit/commands.h"
#include "kit/frame/argument_parser.h"

namespace tavrel::fuzz {

KitCommand::KitCommand(const std::vector<std::string>& words)
    : command_(&*std::find_if(
          kit::commands().begin(), kit::commands().end(),
          [&words](const kit::Command& command) { return command.name == words.front(); })),
      arguments_(kit::parseArguments(*command_, {words.begin() + 1, words.end()})) {}

kit::ExitCode KitCommand::run(kit::Output& output) const {
  try {
    const int code = command_->run(arguments_, output);
    require(code == kit::exitYes || code == kit::exitNo);
    return static_cast<kit::ExitCode>(code);
  } catch (const std::exception& error) {
    require(!std::string_view(error.what()).empty());
    output.results.clear();
    return kit::exitFailed;
  }
}

}  // namespace tavrel::fuzz
