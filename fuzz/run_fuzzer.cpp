// Fuzzes a whole run. One input holds its arguments, its script and three of its asset files.
//
// | Content | Goes to |
// |---|---|
// | arguments after the script's name, one a line, and a line "----" | the argument list |
// | the rest, see replaceBuild | script and asset files |
#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "compiler/run_driver.h"
#include "fuzz/input_parts.h"
#include "fuzz/memory_bound.h"
#include "fuzz/quiet_console.h"
#include "fuzz/replace_build.h"
#include "fuzz/require.h"
#include "fuzz/work_directory.h"

namespace tavrel::fuzz {

namespace {

/// The argument list in the form of `main`.
class Arguments {
 public:
  explicit Arguments(std::string_view lines) {
    while (!lines.empty()) {
      texts_.push_back(confined(cutOff(lines, "\n")));
    }
    std::transform(texts_.begin(), texts_.end(), std::back_inserter(pointers_),
                   [](const std::string& text) { return text.c_str(); });
    pointers_.push_back(nullptr);
  }

  [[nodiscard]] int count() const { return static_cast<int>(pointers_.size()) - 1; }
  [[nodiscard]] const char* const* list() const { return pointers_.data(); }

 private:
  std::vector<std::string> texts_;
  std::vector<const char*> pointers_{"tavrel", "s.txt"};
};

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  fuzz::silenceConsole();
  static const fuzz::WorkDirectory directory;

  std::string_view input(reinterpret_cast<const char*>(bytes), size);
  const fuzz::Arguments arguments(fuzz::cutOff(input));
  fuzz::replaceBuild(input);
  const fuzz::MemoryBound bound(size, fuzz::LargeBlocks::refuse);
  const int exitCode = runTavrel(arguments.count(), arguments.list());
  fuzz::require(exitCode == 0 || exitCode == 1);
  return 0;
}
