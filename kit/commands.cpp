#include "kit/commands.h"

namespace tavrel::kit {

const std::vector<Command>& commands() {
  static const std::vector<Command> kCommands{
      listCommand(), verifyCommand(),  extractCommand(), diffCommand(),
      showCommand(), qualityCommand(), checkCommand(),   explainCommand(),
      newCommand(),  depsCommand(),    buildCommand(),   reportCommand(),
  };
  return kCommands;
}

}  // namespace tavrel::kit
