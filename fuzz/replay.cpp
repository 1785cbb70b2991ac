// Runs a fuzzer without a fuzzing engine on each input in the folders of the command line: whole,
// truncated to every length, and with every byte damaged. An ordinary test of past failures and of
// inputs close to them. Those in the folders after "--whole" are run once.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace {

void run(const std::string& input) {
  // A block of the exact size, so that sanitizers notice a read beyond it.
  const std::vector<std::uint8_t> bytes(input.begin(), input.end());
  LLVMFuzzerTestOneInput(bytes.data(), bytes.size());
}

struct Input {
  std::filesystem::path path;
  bool isDamaged;  ///< and truncated, too
};

void replay(const Input& stored) {
  std::ifstream file(stored.path, std::ios::binary);
  const std::string input{std::istreambuf_iterator<char>(file), {}};
  run(input);
  if (!stored.isDamaged) {
    return;
  }
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
  std::FILE* console = stderr;  // the fuzzers silence the stream
  std::vector<Input> inputs;
  bool isDamaged = true;
  for (int i = 1; i < argumentCount; ++i) {
    isDamaged = isDamaged && arguments[i] != std::string_view("--whole");
    if (std::filesystem::exists(arguments[i])) {  // the folder of failures may not exist yet
      for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
        inputs.push_back({std::filesystem::absolute(entry.path()), isDamaged});
      }
    }
  }
  for (const Input& input : inputs) {
    std::fprintf(console, "%s\n", input.path.c_str());
    replay(input);
  }
  std::fprintf(console, "%zu inputs\n", inputs.size());
  return inputs.empty() ? 1 : 0;
}
