// Fuzzes tavkit with a bank and its header: the header, a line "----" and the bank. Each command
// must answer, with a valid document if it is asked for one, and extract only into its folder.
#include <array>
#include <cstdint>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/run_driver.h"
#include "fuzz/input_parts.h"
#include "fuzz/kit_command.h"
#include "fuzz/memory_bound.h"
#include "fuzz/quiet_console.h"
#include "fuzz/require.h"
#include "fuzz/small_build.h"
#include "fuzz/work_directory.h"

namespace tavrel::fuzz {

namespace {

const std::vector<KitCommand>& commands() {
  static const std::vector<KitCommand> all{
      KitCommand({"list", "b.tvb"}),
      KitCommand({"verify", "b.tvb", "--header", "b.h"}),
      KitCommand({"diff", "b.tvb", "small.tvb"}),
      KitCommand({"diff", "--ids", "b.tvb", "b.tvb"}),
      KitCommand({"extract", "b.tvb", "-o", "out", "--channels", "2"}),
      KitCommand({"extract", "b.tvb", "-o", "out", "--raw", "--force"}),
      KitCommand({"extract", "b.tvb", "-o", "out", "--script", "out/s.txt", "--force"}),
      KitCommand({"report", "b.tvb", "-o", "out/page.html"}),
  };
  return all;
}

const std::vector<KitCommand>& commandsWithDocuments() {
  static const std::vector<KitCommand> all{
      KitCommand({"list", "b.tvb", "--json"}),
      KitCommand({"verify", "b.tvb", "--json"}),
      KitCommand({"diff", "small.tvb", "b.tvb", "--json"}),
  };
  return all;
}

/// Runs every command. Those that are asked for a document must print a valid one.
void runCommands() {
  kit::Output output;
  for (const KitCommand& command : commands()) {
    command.run(output);
  }
  for (const KitCommand& command : commandsWithDocuments()) {
    kit::Output document;
    if (command.run(document) != kit::exitFailed) {
      require(nlohmann::json::accept(document.results));
    }
  }
}

/// Requires that the tool packs the script that was extracted, if there is one.
void packScript() {
  if (std::filesystem::exists("out/s.txt")) {
    std::filesystem::current_path("out");
    const std::array<const char*, 3> arguments{"tavrel", "s.txt", nullptr};
    require(runTavrel(2, arguments.data()) == 0);
    std::filesystem::current_path("..");
  }
}

/// Requires that there is nothing in the current folder that the commands shouldn't have made.
void checkFolder() {
  for (const auto& entry : std::filesystem::directory_iterator(".")) {
    const std::string name = entry.path().filename().string();
    require(name == "b.h" || name == "b.tvb" || name == "small.tvb" || name == "out");
  }
}

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  fuzz::silenceConsole();
  static const fuzz::WorkDirectory directory({{"small.tvb", fuzz::smallBank()}});

  std::string_view input(reinterpret_cast<const char*>(bytes), size);
  fuzz::WorkDirectory::write("b.h", fuzz::cutOff(input));
  fuzz::WorkDirectory::write("b.tvb", input);
  std::filesystem::remove_all("out");
  const fuzz::MemoryBound bound(size, fuzz::LargeBlocks::refuse);
  fuzz::runCommands();
  fuzz::packScript();
  fuzz::checkFolder();
  return 0;
}
