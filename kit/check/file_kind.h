// What a file really is, told by its first bytes.
#pragma once

#include <string>
#include <string_view>

namespace tavrel::kit {

/// Program that converts a file into one that the tool reads.
enum class Converter {
  none,
  rename,  ///< the tool reads such files under another extension or by another statement
  sox,
  ffmpeg,
  gitLfs,
};

struct FileKind {
  std::string_view pattern;    ///< of the first bytes; a '?' is any byte
  std::string_view name;       ///< "an MP3 file"
  std::string_view extension;  ///< the usual one, which is also the type's name for sox
  Converter converter;
};

/// Returns the kind that the first bytes of a file show; the kind of an unknown one has an empty
/// name. `start` holds the first `kKindBytes` bytes, or the whole file if it is shorter.
const FileKind& kindOf(std::string_view start);

/// Returns the kind of a file. That of one that can't be read is unknown.
const FileKind& kindOfFile(const std::string& name);

constexpr std::size_t kKindBytes = 512;

/// The kinds that have readers in the tool.
bool isAiff(const FileKind& kind);
bool isSequence(const FileKind& kind);
bool isWave(const FileKind& kind);

}  // namespace tavrel::kit
