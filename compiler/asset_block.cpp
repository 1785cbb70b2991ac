#include "compiler/asset_block.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

#include "foundation/console.h"

namespace tavrel {

namespace {

std::uint64_t paddedSize(std::uint32_t size, Padding padding) {
  return padding == Padding::none ? size : roundUp(size, 4);
}

}  // namespace

AssetBlock::AssetBlock(BankScript& script, TokenFile& source) : script_(script), source_(source) {}

bool AssetBlock::open() {
  entry_.reset(new (std::nothrow) AssetEntry);
  data_.reset(new (std::nothrow) AssetData);
  if (!entry_ || !data_ || !source_.readToken()) {
    return false;
  }
  if (!fileName().splitNameAndPath(source_.token.data())) {
    return false;
  }
  fullFileName_ = fileName().getNameAndPath();
  return fullFileName_ != nullptr && nameAsset();
}

/// boom.wav is the asset boom_wav.
bool AssetBlock::nameAsset() {
  const char* stem = fileName().getNameOnly();
  const char* extension = fileName().getExtensionOnly();
  if (stem == nullptr || extension == nullptr) {
    return false;
  }
  std::array<char, AssetData::kLongestName + 1>& name = data_->name;
  if (std::strlen(stem) + 1 + std::strlen(extension) > AssetData::kLongestName) {
    printLine(stderr, "ERROR: Asset name ", stem, "_", extension,
              " is too long, only 79 chars allowed");
    return false;
  }
  std::strcpy(name.data(), stem);
  std::strcat(name.data(), "_");
  std::strcat(name.data(), extension);
  if (!script_.hasRoomForAsset()) {
    printLine(stderr, "ERROR: Asset ", name.data(), " is one too many, only 32768 assets allowed");
    return false;
  }
  return true;
}

void AssetBlock::announce(const char* label) const { printLine(stdout, label, fullFileName_); }

bool AssetBlock::readNumberOption(std::span<const NumberOption> options) {
  for (const NumberOption& option : options) {
    if (source_.isToken(option.keyword)) {
      return source_.readNumber(entry_->parameter[option.parameter]);
    }
  }
  return reportUnidentifiedToken(source_);
}

bool AssetBlock::makePayload(std::uint32_t size, Padding padding) {
  return takePayload(newBytes(paddedSize(size, padding)), size, padding);
}

bool AssetBlock::takePayload(ByteBlock bytes, std::uint32_t size, Padding padding) {
  if (!bytes) {
    return false;
  }
  const std::uint64_t padded = paddedSize(size, padding);
  std::fill(bytes.get() + size, bytes.get() + padded, std::uint8_t{0});
  data_->payload = std::move(bytes);
  entry_->size = size;
  // A blob of 4 GiB with its padding is one byte too long for the field, and for any bank: the
  // writer refuses that one.
  constexpr std::uint64_t kLongest = std::numeric_limits<std::uint32_t>::max();
  data_->paddedSize = static_cast<std::uint32_t>(std::min(padded, kLongest));
  return true;
}

bool AssetBlock::store(AssetType type, AssetKind kind) {
  entry_->type = type;
  data_->kind = kind;
  return script_.storeAsset(std::move(data_), std::move(entry_));
}

}  // namespace tavrel
