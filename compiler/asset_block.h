// Base of all block parsers. Creates an asset's two records, parses its options, and stores it in
// the bank. Owns the records until then; a block that fails drops them.
// Operations return false if the block fails; any message has already been printed.
#pragma once

#include <cstdint>
#include <memory>

#include "compiler/asset_data.h"
#include "compiler/bank_format.h"
#include "compiler/bank_script.h"
#include "compiler/script_language.h"
#include "foundation/owned_text.h"

namespace tavrel {

class AssetBlock {
 public:
  /// Borrows `script`, which receives the finished asset, and `source`, which delivers the tokens.
  /// `statement` is the row of the block's keyword.
  AssetBlock(BankScript& script, TokenFile& source, const Statement& statement);

  /// Creates the records, reads the asset's file name, and names the asset. Fails also for a name
  /// that is too long and for an asset beyond the last id.
  bool open();

  /// Prints the progress line of the statement, or `label` instead, and the full file name.
  void announce() const { announce(statement_.reading); }
  void announce(const char* label) const;

  /// Sets the options to their defaults, then reads options up to `AssetEnd`.
  bool readOptions();

  /// Allocates the payload: `size` bytes, which the caller fills, and zero bytes as padding.
  bool makePayload(std::uint32_t size);

  /// Takes ownership of `bytes` as the payload: `size` bytes, with room for the padding after them.
  /// Fails for a null block.
  bool takePayload(ByteBlock bytes, std::uint32_t size);

  /// Stores the asset in the bank. Nothing else may be called afterwards.
  bool store();

  /// Returns the name under which the asset's file is opened. Valid as long as the block.
  [[nodiscard]] const char* fullFileName() const { return fullFileName_.get(); }

  /// Returns true if the script asks for compression.
  [[nodiscard]] bool wantsAdpcm() const { return unstoredValue_ != 0; }

  [[nodiscard]] const TokenFile& source() const { return source_; }
  [[nodiscard]] FileName& fileName() { return script_.assetFileName; }
  [[nodiscard]] AssetEntry& entry() { return *entry_; }
  [[nodiscard]] AssetData& data() { return *data_; }
  [[nodiscard]] std::uint8_t* payload() { return data_->payload.get(); }

 private:
  bool nameAsset();
  bool readOption();
  bool readValue(const Option& option);
  bool readWord(const Option& option, std::int32_t& value);
  void setValue(const Option& option, std::int32_t value);
  [[nodiscard]] std::uint64_t paddedSize(std::uint32_t size) const;

  BankScript& script_;
  TokenFile& source_;
  const Statement& statement_;
  std::unique_ptr<AssetEntry> entry_;
  std::unique_ptr<AssetData> data_;
  OwnedText fullFileName_;
  std::int32_t unstoredValue_ = 0;  // of the option that fills no parameter word
};

}  // namespace tavrel
