// Commands that fix an asset, as a user may paste them into a shell. Names are those of the script.
// A name never becomes syntax of the shell or an option of the command.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "kit/check/file_kind.h"

namespace tavrel::kit {

/// Returns `wanted`, or a name like it, to which the file or folder `name` can be moved.
std::string freeName(const std::string& name, const std::string& wanted);

/// Returns the command that moves a file or folder to where nothing is.
std::string moveCommand(const std::string& from, const std::string& to);

/// What is wrong with a sound that sox can convert.
struct SoundFix {
  std::string_view inputType{};  ///< for sox, if the file's extension doesn't show it
  std::uint16_t oldBits = 16;    ///< of a sample
  bool toMono = false;
  bool to16Bits = false;
  bool toPcm = false;
  std::string_view extension = ".wav";  ///< of the new file, with its dot
};

/// Returns the command that converts a sound into a new file beside it.
std::string soxCommand(const std::string& name, const SoundFix& fix);

/// Returns the command that makes the sound `output`, or a new file beside the old one, of a file
/// of another kind, or the empty string if there is none.
std::string convertCommand(const std::string& name, const FileKind& kind,
                           const std::string& output);
std::string convertCommand(const std::string& name, const FileKind& kind);

/// Returns the command that makes a sequence of type 0 in a new file beside it.
std::string sequenceCommand(const std::string& name);

}  // namespace tavrel::kit
