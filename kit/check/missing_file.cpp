#include "kit/check/missing_file.h"

#include <fmt/format.h>

#include <algorithm>

#include "foundation/text_utilities.h"
#include "foundation/token_file.h"
#include "kit/check/fix_command.h"
#include "kit/check/unreadable_file.h"
#include "kit/check/word_hints.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

constexpr std::string_view kQuotes = "\"'";

std::string withoutQuotes(std::string_view name) {
  const std::size_t first = name.find_first_not_of(kQuotes);
  if (first == std::string_view::npos) {
    return "";
  }
  return std::string(name.substr(first, name.find_last_not_of(kQuotes) - first + 1));
}

/// Returns the longest start of `whole` that ends before a delimiter, or is all of it, and without
/// its quotes names a file. Returns the empty string if there is none.
std::string fileAtStart(std::string_view whole) {
  constexpr std::size_t kMostParts = 32;
  whole = whole.substr(0, whole.find('\0'));  // no file has one in its name
  std::string found;
  std::size_t end = 0;
  for (std::size_t part = 0; part < kMostParts && end < whole.size(); ++part) {
    end += end == 0 ? 0 : 1;
    while (end < whole.size() && !TokenFile::isDelimiter(whole[end])) {
      ++end;
    }
    const std::string name = withoutQuotes(whole.substr(0, end));
    if (kindUnder(name) == PathKind::file) {
      found = name;
    }
  }
  return found;
}

bool endsWord(char c) {
  return TokenFile::isDelimiter(c) || kQuotes.find(c) != std::string_view::npos;
}

/// How to rename a file or folder whose name a script can't hold.
struct Renaming {
  std::string command;
  std::string newName;  ///< of the file, with its folders, for the script
};

/// Returns the renaming that replaces what ends a word, in the name of the first folder that has it
/// or else of the file.
Renaming renamingOf(const std::string& file) {
  const auto bad = std::find_if(file.begin(), file.end(), endsWord);
  const auto isSeparator = [](char c) { return c == '/' || c == '\\'; };
  const auto end = std::find_if(bad, file.end(), isSeparator);
  const std::string part(file.begin(), end);
  std::string joined = part;
  std::replace_if(joined.begin(), joined.end(), endsWord, '_');
  joined = freeName(part, joined);
  return {moveCommand(part, joined), joined + std::string(end, file.end())};
}

/// Returns how the script can name a file that is there.
std::string namingHint(const std::string& found) {
  return std::any_of(found.begin(), found.end(), TokenFile::isDelimiter)
             ? renamingOf(found).command
             : fmt::format("Write {}", found);
}

/// Reports a name that isn't whole, with the file that it means.
void reportSplit(const std::string& file, BlockFindings& findings) {
  const std::size_t cut = file.find_first_of(" \t;");
  if (cut == std::string::npos) {
    findings.addAtFile("missing-file", "names have no quotes", fmt::format("Write {}", file));
    return;
  }
  const Renaming renaming = renamingOf(file);
  findings.addAtFile("missing-file",
                     fmt::format("a {} has split the name {}; rename it and write {}",
                                 file[cut] == ';' ? "semicolon" : "space", file, renaming.newName),
                     renaming.command);
}

/// Reports a name with a long extension, of which tavrel uses a part.
void reportCut(const std::string& openedName, BlockFindings& findings) {
  const std::string& written = findings.fileName();
  const FileKind& kind = kindOfFile(written);
  findings.addAtFile(
      "missing-file",
      fmt::format("of an extension three characters are used, and {} isn't there{}", openedName,
                  kind.name.empty() || isWave(kind) ? "" : fmt::format("; this is {}", kind.name)),
      isWave(kind) ? moveCommand(written, openedName) : conversionHint(written, kind, findings));
}

/// Returns what is said of a name that is near to the one in the script.
std::string suggestion(const std::string& wanted, const std::string& found) {
  if (found.empty()) {
    return "";
  }
  return equalsIgnoringCase(wanted.c_str(), found.c_str())
             ? fmt::format("; {} is there, in another case", found)
             : fmt::format("; did you mean {}?", found);
}

/// Returns the edit that corrects the case of the name, if one file alone can be meant.
std::optional<Edit> caseEdit(const std::string& openedName, FolderNames& folders,
                             const BlockFindings& findings) {
  const std::string found = folders.onlyOtherCase(openedName);
  return found.empty() || openedName != findings.fileName()
             ? std::nullopt
             : std::optional(findings.block().file->replacedBy(found));
}

}  // namespace

void reportMissing(const std::string& openedName, FolderNames& folders, BlockFindings& findings) {
  const ScriptBlock& block = findings.block();
  const std::string& written = findings.fileName();
  const std::string meant = fileAtStart(block.wholeName);
  if (openedName != written && kindUnder(written) != PathKind::missing) {
    reportCut(openedName, findings);
  } else if (!meant.empty()) {
    reportSplit(meant, findings);
  } else if (block.strayWord) {
    findings.addAtFile("missing-file",
                       fmt::format("there is no such file; a space ends the name, if {} was meant",
                                   block.wholeName),
                       written == "=" ? equalsSignHint(written) : "Names of files have no spaces");
  } else {
    const std::string found = folders.nearestName(openedName);
    findings.addAtFile("missing-file", "there is no such file" + suggestion(openedName, found),
                       found.empty() ? "Files are found from the current folder, or from that of -C"
                                     : namingHint(found),
                       caseEdit(openedName, folders, findings));
  }
}

}  // namespace tavrel::kit
