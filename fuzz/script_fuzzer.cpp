// Fuzzes a script: as text in memory with every reading operation, then as the script of a bank
// that is not written.
#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "compiler/bank_script.h"
#include "foundation/token_file.h"
#include "fuzz/hostile_file.h"
#include "fuzz/require.h"
#include "fuzz/small_build.h"
#include "fuzz/work_directory.h"

namespace tavrel::fuzz {

namespace {

/// Reads the text of `file` from its start, token by token.
std::size_t readTokens(TokenFile& file) {
  std::size_t characters = 0;
  while (file.readToken()) {
    const std::size_t length = std::strlen(file.token.data());
    require(length <= TokenFile::kLongestToken);
    require(std::strpbrk(file.token.data(), " \t;\r\n") == nullptr);
    characters += length;
  }
  return characters;
}

/// Does the same with each typed read in turn.
void readValues(TokenFile& file) {
  std::int32_t number = 0;
  std::uint8_t flag = 0;
  TokenFile::TokenBuffer text{};
  bool more = true;
  while (more) {
    const bool isFlag = file.readFlag(flag);
    require(flag <= 1 && (!isFlag || (file.token[0] == '0') == (flag == 0)));
    more = file.readNumber(number) && file.readTokenInto(text.data());
    require(!more || std::strcmp(text.data(), file.token.data()) == 0);
    require(!more || file.isToken(text.data()));
  }
}

void readFromMemory(const std::uint8_t* bytes, std::size_t size) {
  TokenFile file;
  auto* block = new std::uint8_t[size];
  std::copy_n(bytes, size, block);
  file.useMemory(block, size);
  require(readTokens(file) <= size);
  file.rewind();
  readValues(file);
  file.rewind();
  while (file.skipLine()) {
  }
  file.rewind();
  while (file.readLine()) {
  }
  file.freeData();
}

void parse(const char* script) {
  BankScript bank(script);
  if (bank.parseScript()) {
    require(bank.bankFileName.name != nullptr);
  }
  require(bank.entries.size() == bank.assets.size());
  for (const auto& asset : bank.assets) {
    const AssetEntry& entry = *bank.entries.at(static_cast<std::size_t>(asset->id));
    require(entry.size <= asset->paddedSize && asset->paddedSize - entry.size < 4);
    require(std::all_of(asset->payload.get() + entry.size, asset->payload.get() + asset->paddedSize,
                        [](std::uint8_t byte) { return byte == 0; }));
  }
}

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  static const fuzz::WorkDirectory assets(fuzz::smallBuild());
  const fuzz::HostileFile input(bytes, size);
  fuzz::readFromMemory(bytes, size);
  fuzz::parse(input.path());
  return 0;
}
