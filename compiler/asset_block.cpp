#include "compiler/asset_block.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

#include "compiler/names.h"
#include "foundation/console.h"

namespace tavrel {

AssetBlock::AssetBlock(BankScript& script, TokenFile& source, const Statement& statement)
    : script_(script), source_(source), statement_(statement) {}

bool AssetBlock::open() {
  entry_.reset(new (std::nothrow) AssetEntry);
  data_.reset(new (std::nothrow) AssetData);
  if (!entry_ || !data_) {
    return false;
  }
  data_->scriptOffset = source_.tokenStart();
  if (!source_.readToken() || !fileName().splitNameAndPath(source_.token.data())) {
    return false;
  }
  const char* fullName = fileName().getNameAndPath();
  if (fullName == nullptr) {
    return false;
  }
  fullFileName_ = makeText(fullName);
  return fullFileName_ && nameAsset();
}

/// Names the asset after its file: boom.wav is the asset boom_wav.
bool AssetBlock::nameAsset() {
  const char* stem = fileName().getNameOnly();
  const char* extension = fileName().getExtensionOnly();
  if (stem == nullptr || extension == nullptr) {
    return false;
  }
  if (!assetName(stem, extension, data_->name)) {
    printLine(stderr, "ERROR: Asset name ", stem, "_", extension, " is too long, only ",
              static_cast<std::uint32_t>(AssetData::kLongestName), " chars allowed");
    return false;
  }
  if (!script_.hasRoomForAsset()) {
    printLine(stderr, "ERROR: Asset ", data_->name.data(), " is one too many, only ", kMostAssets,
              " assets allowed");
    return false;
  }
  return true;
}

void AssetBlock::announce(const char* label) const { printLine(stdout, label, fullFileName()); }

bool AssetBlock::readOptions() {
  for (const Option& option : statement_.options) {
    setValue(option, option.byDefault);
  }
  while (source_.readToken()) {
    if (source_.isToken(kAssetEnd)) {
      return true;
    }
    if (!readOption()) {
      return false;
    }
  }
  return false;
}

/// Reads the value of the option that the current token names. A statement without options fails
/// silently.
bool AssetBlock::readOption() {
  for (const Option& option : statement_.options) {
    if (source_.isToken(option.keyword)) {
      return readValue(option);
    }
  }
  return !statement_.options.empty() && failUnidentifiedToken(source_);
}

bool AssetBlock::readValue(const Option& option) {
  std::int32_t value = 0;
  std::uint8_t flag = 0;
  switch (option.value) {
    case Value::number:
      if (!source_.readNumber(value)) {
        return false;
      }
      break;
    case Value::flag:
      if (!source_.readFlag(flag)) {
        return false;
      }
      value = flag;
      break;
    case Value::word:
      if (!readWord(option, value)) {
        return false;
      }
      break;
  }
  setValue(option, value);
  return true;
}

bool AssetBlock::readWord(const Option& option, std::int32_t& value) {
  if (!source_.readToken()) {
    return false;
  }
  for (const Word& word : option.words) {
    if (std::strcmp(source_.token.data(), word.text) == 0) {
      value = word.value;
      return true;
    }
  }
  printLine(stderr, "Bad Argument for ", option.keyword, " token.");
  return failUnidentifiedToken(source_);
}

void AssetBlock::setValue(const Option& option, std::int32_t value) {
  if (option.parameter == kNotStored) {
    unstoredValue_ = value;
  } else {
    entry_->parameter[static_cast<std::size_t>(option.parameter)] = value;
  }
}

std::uint64_t AssetBlock::paddedSize(std::uint32_t size) const {
  return statement_.padding == Padding::none ? size : roundUp(size, kBlobAlignment);
}

bool AssetBlock::makePayload(std::uint32_t size) {
  return takePayload(newBytes(paddedSize(size)), size);
}

bool AssetBlock::takePayload(ByteBlock bytes, std::uint32_t size) {
  if (!bytes) {
    return false;
  }
  const std::uint64_t padded = paddedSize(size);
  std::fill(bytes.get() + size, bytes.get() + padded, std::uint8_t{0});
  data_->payload = std::move(bytes);
  entry_->size = size;
  // A blob that pads to 4 GiB is one byte too long for the field. It is also too long for any
  // bank, and the writer refuses it.
  data_->paddedSize = static_cast<std::uint32_t>(std::min<std::uint64_t>(padded, kLongestBank));
  return true;
}

bool AssetBlock::store() {
  entry_->type = statement_.type;
  data_->kind = statement_.kind;
  return script_.storeAsset(std::move(data_), std::move(entry_));
}

}  // namespace tavrel
