#include "kit/check/fix_command.h"

#include <fmt/format.h>

#include "foundation/text_utilities.h"
#include "kit/frame/shell_word.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Returns true if a command could take a path for something else: for an option (-o), a program
/// to run (sox reads from the one after a '|') or an address (ffmpeg opens pipe:0).
bool isAmbiguous(std::string_view path) {
  return path.find_first_of("-+|@~") == 0 ||
         (path.find(':') != std::string_view::npos && !hasDrive(path));
}

/// Returns a file of the host as a word that every command takes for a file.
std::string fileWord(const std::string& name) {
  const std::string path = hostPath(name.c_str());
  return shellWord(isAmbiguous(path) ? "./" + path : path);
}

/// Returns a file as an input of sox, which expands patterns that are quoted too.
std::string soxInput(const std::string& name) {
  const bool isPattern = name.find_first_of("*?[{\\") != std::string::npos;
  return (isPattern ? "--no-glob " : "") + fileWord(name);
}

struct NameParts {
  std::string stem;       ///< with the folder
  std::string extension;  ///< with its dot, or empty
};

NameParts partsOf(const std::string& name) {
  const std::size_t dot = name.rfind('.');
  const std::size_t slash = name.find_last_of("/\\");
  if (dot == std::string::npos || (slash != std::string::npos && dot < slash)) {
    return {name, ""};
  }
  return {name.substr(0, dot), name.substr(dot)};
}

/// Returns pluck for pluck24 and 24.
std::string withoutNumber(std::string stem, std::uint16_t number) {
  const std::string end = std::to_string(number);
  if (stem.size() > end.size() && stem.ends_with(end)) {
    stem.resize(stem.size() - end.size());
  }
  return stem;
}

/// Returns the name of a file to be made of the file `name`. Appends `mark` to the stem while that
/// would be the same file or another one that is there: the commands would replace it.
std::string newName(const std::string& name, std::string stem, std::string_view extension,
                    std::string_view mark) {
  std::string result = fmt::format("{}{}", stem, extension);
  while (equalsIgnoringCase(result.c_str(), name.c_str()) ||
         kindUnder(result) != PathKind::missing) {
    stem += fmt::format("_{}", mark);
    result = fmt::format("{}{}", stem, extension);
  }
  return result;
}

}  // namespace

std::string freeName(const std::string& name, const std::string& wanted) {
  const NameParts parts = partsOf(wanted);
  return newName(name, parts.stem, parts.extension, "new");
}

std::string moveCommand(const std::string& from, const std::string& to) {
  return fmt::format("mv -n {} {}", fileWord(from), fileWord(to));
}

std::string soxCommand(const std::string& name, const SoundFix& fix) {
  const std::string stem = partsOf(name).stem;
  const std::string output =
      fix.to16Bits ? newName(name, withoutNumber(stem, fix.oldBits), fix.extension, "16")
                   : newName(name, stem, fix.extension, "mono");
  const std::string type = fix.inputType.empty() ? "" : fmt::format("-t {} ", fix.inputType);
  return fmt::format("sox {}{}{}{}{} {}", type, soxInput(name), fix.toMono ? " -c 1" : "",
                     fix.to16Bits ? " -b 16" : "", fix.toPcm ? " -e signed-integer" : "",
                     fileWord(output));
}

std::string convertCommand(const std::string& name, const FileKind& kind) {
  return convertCommand(name, kind, newName(name, partsOf(name).stem, ".wav", "new"));
}

std::string convertCommand(const std::string& name, const FileKind& kind,
                           const std::string& output) {
  switch (kind.converter) {
    case Converter::rename:
      return moveCommand(
          name, newName(name, partsOf(name).stem, fmt::format(".{}", kind.extension), "new"));
    case Converter::sox:
      return fmt::format("sox -t {} {} -b 16 {}", kind.extension, soxInput(name), fileWord(output));
    case Converter::ffmpeg:
      return fmt::format("ffmpeg -nostdin -i {} -c:a pcm_s16le {}", fileWord(name),
                         fileWord(output));
    case Converter::gitLfs:
      return "git lfs pull";
    case Converter::none:
      break;
  }
  return "";
}

std::string sequenceCommand(const std::string& name) {
  const NameParts parts = partsOf(name);
  return fmt::format(
      "python3 -c 'import sys, mido; old = mido.MidiFile(sys.argv[1]); "
      "new = mido.MidiFile(type=0, ticks_per_beat=old.ticks_per_beat); "
      "new.tracks.append(mido.merge_tracks(old.tracks)); new.save(sys.argv[2])' {} {}",
      fileWord(name), fileWord(newName(name, parts.stem, parts.extension, "type0")));
}

}  // namespace tavrel::kit
