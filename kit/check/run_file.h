// The files of a run. Names are compared by what the host finds under them, since one file can have
// many.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "platform/file_identity.h"

namespace tavrel::kit {

/// A file of a run, which may not be there yet.
struct RunFile {
  std::string path;                      ///< the host's own
  std::optional<FileIdentity> identity;  ///< none while it isn't there
};

/// Returns the file at the host's path `path`.
RunFile runFile(std::string path);

/// Returns true if two files are one, or will be one when they are there.
bool isSame(const RunFile& first, const RunFile& second);

/// Returns true if the host's paths `path` and `other` lead to one file, which is there.
bool isSameFile(const std::string& path, const std::string& other);

/// Returns true if the file at the host's path `path` is one of those at `others`.
bool isOneOf(const std::string& path, const std::vector<std::string>& others);

}  // namespace tavrel::kit
