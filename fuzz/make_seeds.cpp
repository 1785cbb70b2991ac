// Writes the seeds of the fuzzers, small valid inputs: make_seeds folder
#include <filesystem>
#include <fstream>
#include <string>

#include "fuzz/small_build.h"

namespace {

using namespace tavrel::fuzz;

void write(const std::filesystem::path& path, const std::string& content) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
}

/// Returns the input of the whole run; run_fuzzer.cpp has its layout.
std::string runInput() {
  const std::string mark = "\n----\n";
  return "HeaderPrefix\nsnd\nbankPath\nx\nheaderPath\ny" + mark + smallScript() + mark +
         smallWav() + mark + smallAiff() + mark + smallMidi();
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    return 1;
  }
  const std::filesystem::path seeds = arguments[1];
  write(seeds / "script" / "whole", smallScript());
  write(seeds / "wav" / "whole", smallWav());
  write(seeds / "aiff" / "whole", smallAiff());
  write(seeds / "midi" / "whole", smallMidi());
  write(seeds / "run" / "whole", runInput());
  write(seeds / "bank" / "whole", smallBank());
  return 0;
}
