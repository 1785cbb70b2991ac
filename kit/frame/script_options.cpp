#include "kit/frame/script_options.h"

#include <fmt/format.h>

#include <filesystem>

#include "compiler/bank_script.h"
#include "kit/frame/failure.h"

namespace tavrel::kit {

namespace {

bool isSeparator(char c) { return c == '/' || c == '\\'; }

/// Returns a folder as the tool takes it: with its separator at the end.
std::string withSeparator(std::string folder) {
  if (!folder.empty() && !isSeparator(folder.back())) {
    folder += '/';
  }
  return folder;
}

}  // namespace

const std::vector<CommandOption>& scriptOptions() {
  static const std::vector<CommandOption> kOptions{
      {.names = "-C",
       .value = "DIR",
       .help = "Change to DIR first, from where assets and all other names are found",
       .completion = Completion::folder},
      {.names = "--prefix",
       .value = "P",
       .help = "Start all defines with P instead of the bank's name, as HeaderPrefix does"},
      {.names = "--bank-dir",
       .value = "DIR",
       .help = "The folder of the bank, as bankPath",
       .completion = Completion::folder},
      {.names = "--header-dir",
       .value = "DIR",
       .help = "The folder of the header, as headerPath",
       .completion = Completion::folder},
  };
  return kOptions;
}

CommandOption scriptOption(std::string help) {
  return {.names = "--script",
          .value = "SCRIPT",
          .help = std::move(help),
          .completion = Completion::script};
}

void requireScriptFor(const Arguments& arguments) {
  for (const char* option : {"--prefix", "--bank-dir", "--header-dir"}) {
    if (arguments.has(option) && !arguments.has("--script")) {
      throw Failure(fmt::format("{} needs --script", option));
    }
  }
}

void changeDirectory(const Arguments& arguments) {
  const auto directory = arguments.value("-C");
  std::error_code error;
  if (directory) {
    std::filesystem::current_path(*directory, error);
  }
  if (error) {
    throw Failure(fmt::format("can't change to {}: {}", *directory, error.message()));
  }
}

std::string pathForUser(const std::string& path, const Arguments& arguments) {
  return (std::filesystem::path(arguments.value("-C").value_or("")) / path).string();
}

RunPlan planFor(const std::string& script, const Arguments& arguments) {
  RunPlan plan{.scriptPath = script};
  plan.prefix = arguments.value("--prefix").value_or("");
  if (plan.prefix.size() > BankScript::kLongestPrefix) {
    throw Failure(fmt::format("the prefix has {} characters, only {} allowed", plan.prefix.size(),
                              BankScript::kLongestPrefix));
  }
  plan.bankDirectory = withSeparator(arguments.value("--bank-dir").value_or(""));
  plan.headerDirectory = withSeparator(arguments.value("--header-dir").value_or(""));
  return plan;
}

}  // namespace tavrel::kit
