// What all asset blocks of the script share: their two records, their opening, their options, and
// the way into the bank. Owns the records until they are stored; a block that ends before that
// drops them. False means that the block fails; the words of a failure, if it has any, are out by
// then.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "compiler/asset_records.h"
#include "compiler/bank_script.h"

namespace tavrel {

/// An option whose value is a number: its keyword, and the parameter word that the number fills.
struct NumberOption {
  const char* keyword;
  std::size_t parameter;
};

/// Whether a blob is padded to a multiple of 4 bytes in the bank.
enum class Padding { none, toMultipleOf4 };

class AssetBlock {
 public:
  /// `script` gets the finished asset; tokens come from `source`. Both outlive the block.
  AssetBlock(BankScript& script, TokenFile& source);

  /// Makes the records, reads the asset's file name, and names the asset. False also for a name
  /// that is too long and for an asset beyond the last id.
  bool open();

  /// Prints the progress line: the label and the full file name.
  void announce(const char* label) const;

  /// Reads options up to `AssetEnd`: calls `readOption` with each option's keyword as current
  /// token.
  template <typename ReadOption>
  bool readOptions(ReadOption readOption) {
    if (!source_.readToken()) {
      return false;
    }
    while (!source_.isToken("AssetEnd")) {
      if (!readOption() || !source_.readToken()) {
        return false;
      }
    }
    return true;
  }

  /// Reads the number of the option that the current token names. Any other token is reported.
  bool readNumberOption(std::span<const NumberOption> options);

  /// Makes `payload` a block for `size` bytes, which the caller fills, with zero bytes behind them
  /// for the padding.
  bool makePayload(std::uint32_t size, Padding padding);

  /// Takes over `bytes` as `payload`: `size` bytes, and room for the padding behind them. False
  /// for a null block.
  bool takePayload(ByteBlock bytes, std::uint32_t size, Padding padding);

  /// Stores the asset as what `type` and `kind` say.
  bool store(AssetType type, AssetKind kind);

  /// The asset's file as it is opened.
  [[nodiscard]] const char* fullFileName() const { return fullFileName_; }

  [[nodiscard]] TokenFile& source() { return source_; }
  [[nodiscard]] FileName& fileName() { return script_.assetFileName; }
  [[nodiscard]] AssetEntry& entry() { return *entry_; }
  [[nodiscard]] std::uint8_t* payload() { return data_->payload.get(); }

 private:
  bool nameAsset();

  BankScript& script_;
  TokenFile& source_;
  std::unique_ptr<AssetEntry> entry_;
  std::unique_ptr<AssetData> data_;
  const char* fullFileName_ = nullptr;
};

}  // namespace tavrel
