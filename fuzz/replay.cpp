// Runs a fuzzer once for each input in the folders of the command line, without a fuzzing
// engine: a plain test for what once failed.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

void replay(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string input{std::istreambuf_iterator<char>(file), {}};
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(input.data()), input.size());
}

}  // namespace

int main(int argumentCount, char** arguments) {
  std::FILE* console = stderr;  // the fuzzers silence it for what they call
  std::vector<std::filesystem::path> inputs;
  for (int i = 1; i < argumentCount; ++i) {
    if (std::filesystem::exists(arguments[i])) {  // a folder of failures may have none yet
      for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
        inputs.push_back(std::filesystem::absolute(entry.path()));
      }
    }
  }
  for (const std::filesystem::path& input : inputs) {
    std::fprintf(console, "%s\n", input.c_str());
    replay(input);
  }
  std::fprintf(console, "%zu inputs\n", inputs.size());
  return inputs.empty() ? 1 : 0;
}
