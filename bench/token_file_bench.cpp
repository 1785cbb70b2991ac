// Time of TokenFile to split a long script into tokens, and to compare each with all keywords of a
// block as well.
#include <benchmark/benchmark.h>

#include <string>

#include "foundation/token_file.h"

namespace tavrel::bench {

namespace {

std::string script() {
  std::string text;
  for (int i = 0; i < 10000; ++i) {
    text += "UserAsset sounds\\asset" + std::to_string(i) +
            ".dat ; where the level begins\n  Parameter0 " + std::to_string(i) +
            "\r\n\tParameter7 -1\nAssetEnd\n\n";
  }
  return text;
}

/// Reads all tokens, and calls `use` for each.
template <typename Use>
void readAll(benchmark::State& state, Use use) {
  std::string text = script();
  TokenFile file;
  file.useMemory(reinterpret_cast<std::uint8_t*>(text.data()), text.size());
  for (auto _ : state) {
    file.rewind();
    while (file.readToken()) {
      use(file);
    }
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void readTokens(benchmark::State& state) {
  readAll(state, [](TokenFile& file) { benchmark::DoNotOptimize(file.token[0]); });
}

void readAndCompareTokens(benchmark::State& state) {
  readAll(state, [](TokenFile& file) {
    for (const char* keyword : {"Parameter0", "Parameter1", "Parameter2", "Parameter3",
                                "Parameter4", "Parameter5", "Parameter6", "Parameter7"}) {
      benchmark::DoNotOptimize(file.isToken(keyword));
    }
  });
}

BENCHMARK(readTokens);
BENCHMARK(readAndCompareTokens);

}  // namespace

}  // namespace tavrel::bench
