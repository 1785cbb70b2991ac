// Tells files apart, whatever they are called.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>

namespace tavrel {

/// What the host knows a file by. Equal for all names of one file, links included.
struct FileIdentity {
  std::uint64_t volume = 0;
  std::uint64_t number = 0;

  // NOLINTNEXTLINE(modernize-use-nullptr): the generated comparison is taken for a null pointer
  auto operator<=>(const FileIdentity&) const = default;
};

/// Returns the identity of the file or folder at `path`, with links followed. Returns nothing if it
/// isn't there or can't be examined.
std::optional<FileIdentity> fileIdentity(const char* path);

/// Returns the name with the case of its letters A to Z exchanged.
std::string inOtherCase(std::string name);

/// Returns true if the host finds `folder` itself under its name in the other case, as one does
/// that ignores the case of names in it too. Returns false if the folder isn't there or has no
/// letter in its name. Always returns true on Windows.
bool ignoresCase(const char* folder);

}  // namespace tavrel
