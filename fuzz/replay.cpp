// Runs a fuzzer once for each input in the folders of the command line, without a fuzzing engine:
// as it stands, cut short at every length, and with every byte damaged. A plain test for what once
// failed, and for what lies next to it.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

void run(const std::string& input) {
  // Of its exact size, so that a byte too far is seen where the sanitizers are on.
  const std::vector<std::uint8_t> bytes(input.begin(), input.end());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

void replay(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string input{std::istreambuf_iterator<char>(file), {}};
  run(input);
  for (std::size_t place = 0; place < input.size(); ++place) {
    run(input.substr(0, place));
    for (const int damage : {0x01, 0x80, 0xFF}) {
      std::string damaged = input;
      damaged[place] = static_cast<char>(damaged[place] ^ damage);
      run(damaged);
    }
  }
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
