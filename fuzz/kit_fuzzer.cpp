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
#include "fuzz/memory_bound.h"
#include "fuzz/quiet_console.h"
#include "fuzz/require.h"
#include "fuzz/small_build.h"
#include "fuzz/work_directory.h"
#include "kit/frame/command.h"
#include "kit/frame/command_line.h"

namespace tavrel::fuzz {

namespace {

using kit::ExitCode;

const std::array<std::vector<std::string>, 11> kCommands{{
    {"list", "b.tvb"},
    {"list", "b.tvb", "--json"},
    {"verify", "b.tvb", "--header", "b.h"},
    {"verify", "b.tvb", "--json"},
    {"diff", "b.tvb", "small.tvb"},
    {"diff", "small.tvb", "b.tvb", "--json"},
    {"diff", "--ids", "b.tvb", "b.tvb"},
    {"extract", "b.tvb", "-o", "out", "--channels", "2"},
    {"extract", "b.tvb", "-o", "out", "--raw", "--force"},
    {"extract", "b.tvb", "-o", "out", "--script", "out/s.txt", "--force"},
    {"report", "b.tvb", "-o", "out/page.html"},
}};

void run(const std::vector<std::string>& arguments) {
  kit::Output output;
  const int code = kit::runCommandLine(arguments, output);
  require(code == kit::exitYes || code == kit::exitNo || code == kit::exitFailed);
  require(code != kit::exitFailed || (output.results.empty() && !output.messages.empty()));
  if (code != kit::exitFailed && arguments.back() == "--json") {
    require(nlohmann::json::accept(output.results));
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
  constexpr std::string_view kMark = "\n----\n";
  fuzz::silenceConsole();
  static const fuzz::WorkDirectory directory({{"small.tvb", fuzz::smallBank()}});

  const std::string_view input(reinterpret_cast<const char*>(bytes), size);
  const std::size_t headerSize = std::min(input.find(kMark), input.size());
  fuzz::WorkDirectory::write("b.h", input.substr(0, headerSize));
  fuzz::WorkDirectory::write("b.tvb",
                             input.substr(std::min(headerSize + kMark.size(), input.size())));
  std::filesystem::remove_all("out");
  const fuzz::MemoryBound bound(size, fuzz::LargeBlocks::refuse);
  for (const std::vector<std::string>& arguments : fuzz::kCommands) {
    fuzz::run(arguments);
  }
  fuzz::packScript();
  fuzz::checkFolder();
  return 0;
}
