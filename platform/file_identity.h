// Tells files apart, whatever they are called.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <tuple>

namespace tavrel {

/// What the host knows a file by. Equal for all names of one file, links included.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;

  bool operator==(const FileIdentity&) const = default;
  bool operator<(const FileIdentity& other) const {
    return std::tie(volume, number) < std::tie(other.volume, other.number);
  }
};

/// Returns the identity of the file or folder at `path`, with links followed. Returns nothing if it
/// isn't there or can't be examined.
std::optional<FileIdentity> fileIdentity(const char* path);

/// Returns the name with the case of its letters A to Z exchanged.
std::string inOtherCase(std::string name);

/// Returns true if names in `folder` that differ in the case of letters are names of one file.
/// Returns false where that can't be seen: where the folder isn't there, or has no letter in its
/// name.
bool ignoresCase(const char* folder);

}  // namespace tavrel
