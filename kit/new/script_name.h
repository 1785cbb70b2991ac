// Names of files in a script: which of them a script can't have, and what to call such files.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>

#include "compiler/script_language.h"
#include "kit/check/folder_names.h"
#include "kit/new/found_files.h"

namespace tavrel::kit {

/// Returns true for a character that can't be in a name in a script, of a folder or a file.
bool isForbidden(char c);

/// Returns why a statement can't name this file, or the empty string if it can.
std::string faultOfName(const FoundFile& file, const Statement& statement, FolderNames& folders);

/// Finds new names for files. Keeps the defines that are in use.
class FreeNames {
 public:
  FreeNames();

  /// Adds the define of an asset, as `assetName` has named it.
  void take(const std::string& asset);

  /// Returns the command that gives a file a name with which a script can list it. If the name of a
  /// folder is in the way, it renames the folder.
  std::string renaming(const FoundFile& file);

  /// Returns the command that converts a sound of another kind into a file which a script can list.
  std::string conversion(const FoundFile& file);

 private:
  std::string pathFor(const FoundFile& file, const std::string& extension);
  std::string freeName(const std::string& folder, const std::string& stem,
                       const std::string& extension);

  std::unordered_set<std::string> defines_;                ///< without the prefix
  std::unordered_map<std::string, std::size_t> numbered_;  ///< names and how often they were used
};

}  // namespace tavrel::kit
