// Main object of a run: reads the build script, holds the assets, and writes the bank and the
// header. It is also the reader of the script's tokens. Owns all records and their payloads.
// Operations return false on failure; most failures have already printed a message.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "compiler/asset_data.h"
#include "compiler/bank_format.h"
#include "foundation/disk_file.h"
#include "foundation/file_name.h"
#include "foundation/text_output_file.h"
#include "foundation/token_file.h"
#include "samples/adpcm_batch.h"

namespace tavrel {

class BankScript : public TokenFile {
 public:
  static constexpr std::size_t kLongestPrefix = 80;

  /// Names the script. Opens nothing.
  explicit BankScript(const char* scriptName);

  /// Sets the prefix of all defines in the header. Returns false and clears the prefix for null and
  /// for more than 80 characters.
  bool setHeaderPrefix(const char* prefix);

  /// Returns the prefix of all defines in the header: the one that was set, or else the bank's name
  /// up to its first dot. Empty if both are missing or too long. `writeHeader` turns it into
  /// capitals. Valid as long as the object.
  [[nodiscard]] const char* prefix() const { return headerPrefix_.data(); }

  /// First phase: reads the script and all asset files. Succeeds if the script names a bank and no
  /// word at its top level is refused. A block that fails drops its asset and nothing else.
  bool parseScript();

  /// As `parseScript`, from the text that is loaded already. Keeps the text. To parse text in
  /// memory, call `useMemory` and then name the script, for its messages, with `setFile`.
  bool parseStatements();

  /// Second phase: writes the bank.
  bool writeBank();

  /// Returns false for a bank that is too long for 32-bit offsets, which is reported.
  [[nodiscard]] bool checkBankLength() const;

  /// Opens `bank`, whatever its name is, writes the bank to it and closes it. Requires that
  /// `checkBankLength` has returned true. Writes the table first and last; if `layOut` has been
  /// called, both times with the final offsets.
  bool writeBankTo(DiskFile& bank);

  /// Third phase: writes the header of defines. Reads the length of the finished bank from disk.
  bool writeHeader();

  /// Opens `header`, whatever its name is, writes the header of a bank of `length` bytes, and
  /// closes it. Changes the prefix and the names of assets to the form that defines have.
  bool writeHeaderTo(TextOutputFile& header, std::uint32_t length);

  // The block parsers. Each starts after its block's keyword and reads tokens from `source` up to
  // `AssetEnd` or the failure. They return true if the asset was stored.
  bool parseMidiFileType0(TokenFile& source);
  bool parseWaveFile(TokenFile& source);
  bool parseMidiToneBank(TokenFile& source);
  bool parseFxOutputBank(TokenFile& source);
  bool parseFxProgramBank(TokenFile& source);
  bool parseUserAsset(TokenFile& source);

  /// Appends an asset and gives it the next id. Returns false, with nothing stored, if no id is
  /// left or memory runs out.
  bool storeAsset(std::unique_ptr<AssetData> asset, std::unique_ptr<AssetEntry> entry);

  /// Returns true if an id is left.
  [[nodiscard]] bool hasRoomForAsset() const;

  /// Sets the offset of an asset's blob in the bank. Always returns true.
  bool setAssetOffset(std::int16_t id, std::uint32_t offset);

  /// Sets the offsets of all blobs as `writeBank` does, and returns the length of the bank. If the
  /// bank is too long, the length is right and the offsets are not.
  std::uint64_t layOut();

  // Not used by the tool; for programs that must know whether a bank is complete.

  /// Returns true if a block has failed.
  [[nodiscard]] bool hasDroppedBlock() const { return hasDroppedBlock_; }

  // Not used by the tool; for programs that keep the three paths in a file.

  /// Sets the three paths from the preferences file. Returns true if it was read up to its
  /// `PrefsEnd`. Paths that were set before a failure stay.
  bool readPreferences();

  FileName bankFileName;
  std::vector<std::unique_ptr<AssetEntry>> entries;  ///< the bank's table, in script order
  std::vector<std::unique_ptr<AssetData>> assets;    ///< in the same order
  FileName preferencesFileName;
  FileName assetFileName;  ///< the file of the current block
  FileName headerFileName;

 private:
  /// What follows a statement of the script.
  enum class Step { next, end, refused };

  using BlockParser = bool (BankScript::*)(TokenFile&);

  /// Returns null if the current token is no keyword of an asset block.
  [[nodiscard]] BlockParser findParser() const;
  Step parseStatement();
  Step parseBankFileName();

  /// As `parseWaveFile`, but a compressed sound may still wait in the batch.
  bool parseWave(TokenFile& source);

  /// Returns the size of all blobs with their padding, in bytes.
  [[nodiscard]] std::uint64_t blobBytes() const;
  [[nodiscard]] std::uint32_t assetCount() const;
  bool writeTable(DiskFile& bank) const;
  bool writeBlobs(DiskFile& bank) const;

  bool writeAssetDefines(TextOutputFile& header);
  bool readPreferenceStatements(TokenFile& preferences);
  bool readPreference(TokenFile& preferences);

  std::array<char, kLongestPrefix + 1> headerPrefix_{};
  std::uint32_t nextAssetId_ = 0;
  bool isBankNamed_ = false;
  bool hasDroppedBlock_ = false;
  AdpcmBatch batch_;  // destroyed before the payloads that it writes to
};

/// Prints which token of the script was not understood. Always returns false.
bool failUnidentifiedToken(const TokenFile& source);

}  // namespace tavrel
