// Files that a reader of the tool refuses before it knows what is in them.
#pragma once

#include <string>

#include "kit/check/block_findings.h"
#include "kit/check/file_kind.h"
#include "kit/check/folder_names.h"

namespace tavrel::kit {

/// Adds the problem that the tool can't open or read the file called `openedName`: it is missing,
/// no file, too long, or locked.
void reportUnread(const std::string& openedName, FolderNames& folders, BlockFindings& findings);

/// Returns how to get a file that the block's statement reads from one of another kind. May be
/// empty.
std::string conversionHint(const std::string& name, const FileKind& kind,
                           const BlockFindings& findings);

/// Adds the problem that the file isn't of the form that its reader looks for. `form` says which:
/// "a WAV file".
void reportOtherForm(const std::string& openedName, std::string_view form, BlockFindings& findings);

}  // namespace tavrel::kit
