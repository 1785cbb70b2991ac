// Names for the files that assets are extracted to: from the defines, which come from a header
// that may be hostile, or else from the ids. Every name is one that any system takes and that stays
// in its folder, and no two are alike.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tavrel::kit {

/// What a define says of the file that its asset was packed from.
struct DefineParts {
  std::string stem;
  std::string extension;  ///< without a dot; empty if the define has none
};

/// Splits a define, without the bank's prefix, at its last "_". Both parts are in lower case.
DefineParts definePartsOf(std::string_view define);

/// Returns true if a file of this name can be made on any system, and only in its folder: no
/// separators, control characters or names of devices, 200 bytes at most.
bool isSafeName(std::string_view name);

/// An asset for which a name is needed.
struct NameRequest {
  std::string define;     ///< without the bank's prefix; empty if there is none
  std::string extension;  ///< of the file; empty for the define's own, or else "bin"
};

/// Returns a name for each asset, by id.
std::vector<std::string> extractedNames(const std::vector<NameRequest>& requests);

}  // namespace tavrel::kit
