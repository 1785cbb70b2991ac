// The two writers of BankScript, on banks of many small assets. Their progress lines go to the null
// device, and the table of results to standard error.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <memory>
#include <string>

#include "compiler/bank_script.h"

namespace tavrel::bench {

namespace {

constexpr std::uint32_t kPayloadSize = 64;

/// A parsed script with `count` user assets, whose outputs are in a temporary directory.
std::unique_ptr<BankScript> readScript(std::int64_t count) {
  auto script = std::make_unique<BankScript>("bench.txt");
  const std::string stem = (std::filesystem::temp_directory_path() / "tavrel_bench").string();
  script->bankFileName.setName((stem + ".tvb").c_str());
  script->headerFileName.setName((stem + ".h").c_str());
  script->setHeaderPrefix("bench");
  for (std::int64_t i = 0; i < count; ++i) {
    auto asset = std::make_unique<AssetData>();
    std::snprintf(asset->name.data(), asset->name.size(), "asset%d_dat", static_cast<int>(i));
    asset->payload = newBytes(kPayloadSize);
    std::fill_n(asset->payload.get(), kPayloadSize, std::uint8_t{1});
    asset->paddedSize = kPayloadSize;
    asset->kind = kindUserAsset;
    script->storeAsset(std::move(asset), std::make_unique<AssetEntry>());
  }
  return script;
}

void measure(benchmark::State& state, bool (BankScript::*write)()) {
  const auto script = readScript(state.range(0));
  script->writeBank();
  for (auto _ : state) {
    if (!((*script).*write)()) {
      state.SkipWithError("the file can't be written");
      break;
    }
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
  std::filesystem::remove(script->bankFileName.name.get());
  std::filesystem::remove(script->headerFileName.name.get());
}

BENCHMARK_CAPTURE(measure, writeBank, &BankScript::writeBank)->Arg(100)->Arg(10000);
BENCHMARK_CAPTURE(measure, writeHeader, &BankScript::writeHeader)->Arg(100)->Arg(10000);

}  // namespace

}  // namespace tavrel::bench

int main(int argumentCount, char** arguments) {
  benchmark::Initialize(&argumentCount, arguments);
  if (std::freopen("/dev/null", "w", stdout) == nullptr) {
    return 1;
  }
  benchmark::ConsoleReporter table(benchmark::ConsoleReporter::OO_None);
  table.SetOutputStream(&std::cerr);
  benchmark::RunSpecifiedBenchmarks(&table);
  return 0;
}
