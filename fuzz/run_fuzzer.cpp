// Fuzzes a whole run. One input holds its arguments, its script and three of its asset files.
//
// | Content | Goes to |
// |---|---|
// | arguments after the script's name, one a line, and a line "----" | the argument list |
// | script and a line "----" | "s.txt" |
// | WAV file and a line "----" | "w.wav" |
// | AIFF file and a line "----" | "f.aif" |
// | MIDI file | "m.mid" |
//
// The other files are those of a small build. Names must stay in the work directory: in arguments
// and script, a dot or a separator is kept only after a letter or a digit.
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
#include "fuzz/require.h"
#include "fuzz/small_build.h"
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
  static const std::vector<fuzz::SmallFile> otherFiles = fuzz::smallBuild();

  std::string_view input(reinterpret_cast<const char*>(bytes), size);
  const fuzz::Arguments arguments(fuzz::cutOff(input));
  fuzz::WorkDirectory::removeFiles();
  for (const fuzz::SmallFile& file : otherFiles) {
    fuzz::WorkDirectory::write(file.name.c_str(), file.content);
  }
  fuzz::WorkDirectory::write("s.txt", fuzz::confined(fuzz::cutOff(input)));
  fuzz::WorkDirectory::write("w.wav", fuzz::cutOff(input));
  fuzz::WorkDirectory::write("f.aif", fuzz::cutOff(input));
  fuzz::WorkDirectory::write("m.mid", input);
  const fuzz::MemoryBound bound(size, fuzz::LargeBlocks::refuse);
  const int exitCode = runTavrel(arguments.count(), arguments.list());
  fuzz::require(exitCode == 0 || exitCode == 1);
  return 0;
}
