#include "tests/support/expected_bank.h"

#include "tests/support/bytes.h"

namespace tavrel::test {
namespace {

std::size_t missingTo(std::size_t multiple, std::size_t length) {
  return (multiple - length % multiple) % multiple;
}

}  // namespace

ExpectedBank& ExpectedBank::asset(std::uint32_t type, std::string_view payload, Pad pad,
                                  const std::vector<std::int32_t>& parameters) {
  const std::size_t padding = pad == Pad::to4 ? missingTo(4, payload.size()) : 0;
  assets_.push_back({type, std::string(payload), padding, parameters});
  assets_.back().parameters.resize(8);
  return *this;
}

std::size_t ExpectedBank::dataSize() const {
  std::size_t size = 0;
  for (const Asset& asset : assets_) {
    size += asset.payload.size() + asset.padding;
  }
  return size;
}

std::string ExpectedBank::bytes() const {
  const auto long32 = [](auto value) { return static_cast<std::uint32_t>(value); };
  Bytes bank;
  bank.le32(long32(assets_.size()));
  std::size_t offset = 4 + 44 * assets_.size();
  for (const Asset& asset : assets_) {
    bank.le32(asset.type).le32(long32(offset)).le32(long32(asset.payload.size()));
    for (const std::int32_t parameter : asset.parameters) {
      bank.le32(long32(parameter));
    }
    offset += asset.payload.size() + asset.padding;
  }
  for (const Asset& asset : assets_) {
    bank.text(asset.payload).fill(asset.padding);
  }
  return bank.fill(missingTo(32, bank.size())).str();
}

}  // namespace tavrel::test
