#include "kit/new/script_name.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "compiler/names.h"
#include "compiler/wave_rules.h"
#include "foundation/token_file.h"
#include "kit/bank/c_identifier.h"
#include "kit/check/file_kind.h"
#include "kit/check/fix_command.h"
#include "kit/check/script_keywords.h"
#include "kit/frame/ascii.h"
#include "kit/frame/display_text.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

bool isHostSeparator(char c) {
  return std::string_view(kHostSeparators).find(c) != std::string_view::npos;
}

std::string faultOfCharacter(char c) {
  if (isControl(c)) {
    return "a script can't have the control character in its name";
  }
  if (c == '\\') {
    return "a backslash separates folders in a script";
  }
  return fmt::format("a {} ends a name in a script", c == ';' ? "semicolon" : "space");
}

/// Returns `name` with a "_" for each character that `isBad`.
template <typename Predicate>
std::string cleaned(std::string_view name, Predicate isBad) {
  std::string result;
  while (!name.empty()) {
    const std::string_view character = name.substr(0, characterLength(name));
    result += isBad(character.front()) ? "_" : character;
    name.remove_prefix(character.size());
  }
  return result;
}

bool isMissing(const std::string& path) { return pathKind(path.c_str()) == PathKind::missing; }

bool isBadInDefine(char c) { return !isIdentifier(std::string{'_', c}); }

std::size_t nameStart(const FoundFile& file) { return file.path.find_last_of(kHostSeparators) + 1; }

/// Returns the folder in `path` whose name can't be in a script, with its own folder, or nothing.
std::string forbiddenFolder(const std::string& path) {
  const auto bad = std::find_if(path.begin(), path.end(), isForbidden);
  const std::size_t end =
      path.find_first_of(kHostSeparators, static_cast<std::size_t>(bad - path.begin()));
  return end == std::string::npos ? "" : path.substr(0, end);
}

std::string folderRenaming(const std::string& folder) {
  const std::size_t name = folder.find_last_of(kHostSeparators) + 1;
  const std::string better =
      folder.substr(0, name) + cleaned(std::string_view(folder).substr(name), isForbidden);
  std::string free = better;
  for (int number = 2; !isMissing(free); ++number) {
    free = fmt::format("{}_{}", better, number);
  }
  return moveCommand(folder, free);
}

/// Returns the extension for a file that has this one: one that the reader of its form takes, and
/// that a define has whole.
std::string betterExtension(const FoundFile& file, const std::string& extension) {
  constexpr std::size_t kLongestOfWave = 3;
  constexpr std::size_t kLongest = 5;
  const FileKind& kind = kindOfFile(file.path);
  const bool isAiffName = isAiffExtension(extension.c_str());
  const bool isFine = isAiff(kind)   ? isAiffName
                      : isWave(kind) ? extension.size() <= kLongestOfWave && !isAiffName
                                     : extension.size() <= kLongest;
  return isFine || kind.extension.empty() ? extension.substr(0, kLongest)
                                          : std::string(kind.extension);
}

}  // namespace

bool isForbidden(char c) {
  return (c == '\\' && !isHostSeparator(c)) || isControl(c) || TokenFile::isDelimiter(c);
}

std::string faultOfName(const FoundFile& file, const Statement& statement, FolderNames& folders) {
  const auto bad = std::find_if(file.path.begin(), file.path.end(), isForbidden);
  if (bad != file.path.end()) {
    return faultOfCharacter(*bad);
  }
  if (file.name.size() > TokenFile::kLongestToken) {
    return fmt::format("its name has {} characters, a word of a script {} at most",
                       file.name.size(), TokenFile::kLongestToken);
  }
  if (isNoValue(statement, file.name)) {
    return "its name is a word of the script language";
  }
  if (file.name != file.path && folders.has(file.name)) {
    return "this name, with its backslashes, is that of another file";
  }
  return "";
}

FreeNames::FreeNames() {
  for (const char* own : {kFileNameDefine, kDataSizeDefine, kHeaderSizeDefine}) {
    take(own);
  }
}

void FreeNames::take(const std::string& asset) { defines_.insert(defineName("", asset)); }

std::string FreeNames::renaming(const FoundFile& file) {
  const std::string badFolder = forbiddenFolder(file.path);
  if (!badFolder.empty()) {
    return folderRenaming(badFolder);
  }
  const std::string name = file.path.substr(nameStart(file));
  const std::size_t dot = name.rfind('.');
  const std::string extension = dot == std::string::npos ? "" : name.substr(dot + 1);
  return moveCommand(file.path,
                     pathFor(file, betterExtension(file, cleaned(extension, isBadInDefine))));
}

std::string FreeNames::conversion(const FoundFile& file) {
  return convertCommand(file.path, kindOfFile(file.path), pathFor(file, "wav"));
}

/// Returns a free path in the folder of the file, or in the current one if that is too long.
std::string FreeNames::pathFor(const FoundFile& file, const std::string& extension) {
  const std::size_t start = nameStart(file);
  const std::string name = file.path.substr(start);
  const bool isTooLong = file.path.size() > TokenFile::kLongestToken;
  return freeName(isTooLong ? "" : file.path.substr(0, start),
                  cleaned(name.substr(0, name.rfind('.')), isBadInDefine), extension);
}

/// Returns a path in `folder` at which nothing is, and takes its define.
std::string FreeNames::freeName(const std::string& folder, const std::string& stem,
                                const std::string& extension) {
  constexpr std::size_t kLongestNumber = 8;
  const std::size_t room = AssetData::kLongestName - kLongestNumber - 1 - extension.size();
  const std::string end = extension.empty() ? "" : "." + extension;
  const std::string start = stem.substr(0, room);
  std::size_t& number = numbered_[start + end];
  while (true) {
    ++number;
    const std::string better = number == 1 ? start : fmt::format("{}_{}", start, number);
    std::string path = fmt::format("{}{}{}", folder, better, end);
    const std::string asset = fmt::format("{}_{}", better, extension);
    if (isMissing(path) && defines_.insert(defineName("", asset)).second) {
      return path;
    }
  }
}

}  // namespace tavrel::kit
