// A file's name in its two parts.
#pragma once

#include <string>

namespace tavrel::kit {

/// A file's name as the tool splits it, at the first dot.
struct SplitName {
  std::string stem;
  std::string extension;  ///< cut to five characters
};

/// Splits the name in a path of a script, in which only a backslash separates.
SplitName splitName(const std::string& path);

}  // namespace tavrel::kit
