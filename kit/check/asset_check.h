// Checks of one block's file: whether the tool can read it, and what the bank would hold of it.
#pragma once

#include <cstdint>
#include <string>

#include "kit/check/folder_names.h"
#include "kit/check/script_model.h"

namespace tavrel::kit {

/// What the bank would hold of a block.
struct CheckedAsset {
  const ScriptBlock* block = nullptr;
  bool isStored = false;     ///< the tool stores the file, if it understands the words of the block
  bool isMissing = false;    ///< there is no file of its name
  std::string openedName{};  ///< the name under which the tool opens the file
  std::string openedPath{};  ///< where the host finds it
  std::string name{};        ///< of the asset, as the tool makes it: boom_wav; empty if it can't
  std::uint64_t size = 0;    ///< of the blob, in bytes, without its padding; 0 if it isn't stored
  std::uint64_t paddedSize = 0;
  // Of a sound; 0 and false if the file isn't read.
  std::uint32_t fileRate = 0;  ///< in hertz
  std::uint16_t fileBits = 0;  ///< of a sample
  bool fileLoops = false;      ///< the file has loop points of its own
};

/// Checks the file of a block, which has a file name, and its options against what is in the file.
/// Adds what is wrong to `findings`. What the tool's readers print must be caught.
CheckedAsset checkAsset(const ScriptBlock& block, FolderNames& folders, Findings& findings);

}  // namespace tavrel::kit
