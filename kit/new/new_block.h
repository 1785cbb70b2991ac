// A file that `tavkit new` has found, as a block of a script, or why it can't be one.
#pragma once

#include <string>
#include <string_view>

#include "kit/check/asset_check.h"
#include "kit/new/found_files.h"

namespace tavrel::kit {

struct NewBlock {
  FoundFile file;
  ScriptBlock block{};
  CheckedAsset asset{};    ///< borrows `block`, so a NewBlock must not move
  std::string reason{};    ///< why the file isn't listed; empty if it is
  std::string fix{};       ///< a command, or advice; may be empty
  bool lacksName = false;  ///< the fix is a name that no other file has
  bool isForeign = false;  ///< the file is a sound of a kind that no statement reads

  [[nodiscard]] bool isListed() const { return reason.empty(); }

  /// Takes the file from the list if this is a reason to: an error, or a warning that a script
  /// shouldn't begin with. `problem` must be about the file.
  void judge(const Diagnostic& problem);
};

/// Fills in the block of a file, with the options that its content asks for, and checks it.
/// `offset` becomes the place of its words. What the tool's readers print must be caught.
void makeBlock(NewBlock& entry, std::size_t offset, bool wantsAdpcm, FolderNames& folders);

}  // namespace tavrel::kit
