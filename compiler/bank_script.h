// The main object of a run: reads the build script, holds what it has read, and writes the bank and
// the header. It is itself the reader of the script's tokens. Owns all records and their payloads
// until it ends.
// The three phases give false on failure; most failures have told their reason on standard error.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

#include "compiler/asset_records.h"
#include "foundation/disk_file.h"
#include "foundation/file_name.h"
#include "foundation/text_output_file.h"
#include "foundation/token_file.h"

namespace tavrel {

class BankScript : public TokenFile {
 public:
  static constexpr std::size_t kLongestPrefix = 80;

  /// Names the script. Opens nothing.
  explicit BankScript(const char* scriptName);

  /// Sets the prefix of all defines in the header. False, with an empty prefix, for a text of more
  /// than 80 characters or null.
  bool setHeaderPrefix(const char* prefix);

  /// First phase: reads the script and all asset files. True when the script names a bank and no
  /// word at its top level was refused; a block that fails drops its asset and nothing else.
  bool parseScript();

  /// Second phase: writes the bank.
  bool writeBank();

  /// Third phase: writes the header of defines. The bank must be finished: its length comes from
  /// the disk.
  bool writeHeader();

  /// Sets the three paths from the preferences file. True if it was read up to its `PrefsEnd`;
  /// paths set before a failure stay. A run doesn't call it.
  bool readPreferences();

  // The block parsers. Each begins behind its block's keyword and takes tokens from `source` up to
  // `AssetEnd` or to the failure. True when the asset was stored.
  bool parseMidiFileType0(TokenFile& source);
  bool parseWaveFile(TokenFile& source);
  bool parseMidiToneBank(TokenFile& source);
  bool parseFxOutputBank(TokenFile& source);
  bool parseFxProgramBank(TokenFile& source);
  bool parseUserAsset(TokenFile& source);

  /// Puts an asset behind those already stored and gives it the next id. False, with nothing
  /// stored, when no id is left or memory is short.
  bool storeAsset(std::unique_ptr<AssetData> asset, std::unique_ptr<AssetEntry> entry);

  /// Whether another asset can have an id.
  [[nodiscard]] bool hasRoomForAsset() const;

  /// Notes where in the bank the blob of an asset begins. Always true.
  bool setAssetOffset(std::int16_t id, std::uint32_t offset);

  FileName bankFileName;
  std::vector<std::unique_ptr<AssetEntry>> entries;  ///< the bank's table, in script order
  std::vector<std::unique_ptr<AssetData>> assets;    ///< in the same order
  FileName preferencesFileName;
  FileName assetFileName;  ///< the file of the block being read
  FileName headerFileName;

 private:
  bool parseStatement(bool& ok);
  bool parseBankFileName();

  [[nodiscard]] std::uint32_t tableEnd() const;
  [[nodiscard]] bool bankFits() const;
  bool writeTable(DiskFile& bank) const;
  bool writeBlobs(DiskFile& bank, std::uint32_t& position);

  [[nodiscard]] std::uint32_t dataSize() const;
  bool writeAssetDefines(TextOutputFile& header);
  bool readPreferenceStatements(TokenFile& preferences);
  bool readPreference(TokenFile& preferences);

  std::array<char, kLongestPrefix + 1> headerPrefix{};
  std::int32_t nextAssetId = 0;
};

/// Tells on standard error which token of the script was not understood. Always false.
bool reportUnidentifiedToken(const TokenFile& source);

}  // namespace tavrel
