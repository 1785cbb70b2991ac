// A bank on disk: its table in memory, its blobs read on demand. Opened through tavrel/bank.h, so
// that the kit accepts what a game accepts.
#pragma once

#include <tavrel/bank.h>

#include <cstdint>
#include <string>
#include <vector>

#include "foundation/byte_block.h"
#include "foundation/disk_file.h"

namespace tavrel::kit {

class BankFile {
 public:
  /// Opens the file and reads its table. Throws Failure if it can't be read. A file that isn't a
  /// bank leaves its reason in `status` and no assets.
  explicit BankFile(const std::string& path);

  /// Reads `length` bytes at `offset`. Throws Failure if the file no longer has them.
  ByteBlock read(std::uint32_t offset, std::uint32_t length);

  ByteBlock blob(const tavrel_asset& asset) { return read(asset.offset, asset.size); }

  std::string path;
  tavrel_status status = TAVREL_OK;
  std::uint32_t size = 0;            ///< of the whole bank, in bytes
  std::vector<tavrel_asset> assets;  ///< by id

 private:
  DiskFile file_;
};

/// Opens a bank. Throws Failure if the file can't be read or isn't a bank.
BankFile openBank(const std::string& path);

/// Returns the name of an asset type in what the commands print: "wave", "unknown" and the like.
const char* typeName(std::uint32_t type);

}  // namespace tavrel::kit
