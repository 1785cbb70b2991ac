#include "kit/check/unreadable_file.h"

#include <fmt/format.h>

#include <filesystem>
#include <limits>
#include <new>
#include <system_error>

#include "foundation/disk_file.h"
#include "kit/check/file_kind.h"
#include "kit/check/fix_command.h"
#include "kit/check/missing_file.h"
#include "kit/frame/source_file.h"
#include "platform/host_path.h"

namespace tavrel::kit {

namespace {

/// Returns 0 for a size that can't be told.
std::uintmax_t sizeOf(const std::string& name) {
  std::error_code failed;
  const std::uintmax_t size = std::filesystem::file_size(hostPath(name.c_str()), failed);
  return failed ? 0 : size;
}

/// Throws std::bad_alloc if the file opens now: its reader then failed because memory ran out.
void requireMemoryFor(const std::string& name) {
  DiskFile file(modeRead, name.c_str(), "");
  std::uint32_t size = 0;
  const bool isReadable = file.open() && file.getSize(size) && size > 0;
  if (isReadable || file.error == errorNoMemory) {
    throw std::bad_alloc();
  }
}

}  // namespace

std::string conversionHint(const std::string& name, const FileKind& kind,
                           const BlockFindings& findings) {
  const bool isSound = findings.block().row->kind == kindWave;
  if (isSequence(kind)) {
    return "MidiFileType0 reads MIDI files";
  }
  if (!isSound && (isWave(kind) || isAiff(kind))) {
    return "WaveFile reads sounds";
  }
  if (isSound || kind.converter == Converter::gitLfs) {
    return convertCommand(name, kind);
  }
  return "Export the file again";
}

void reportUnread(const std::string& openedName, FolderNames& folders, BlockFindings& findings) {
  const auto add = [&findings](const char* what) { findings.addAtFile("unreadable-file", what); };
  switch (kindUnder(openedName)) {
    case PathKind::missing:
      return reportMissing(openedName, folders, findings);
    case PathKind::directory:
      return add("this is a folder, not a file");
    case PathKind::pipe:
      return add("this is a pipe, not a file");
    case PathKind::other:
      return add("this is a device, not a file");
    case PathKind::file:
      break;
  }
  requireMemoryFor(openedName);
  const std::uintmax_t size = sizeOf(openedName);
  const bool isTooLong = size > std::numeric_limits<std::uint32_t>::max();
  add(size == 0   ? "the file has 0 bytes"
      : isTooLong ? "the file has 4 GiB or more"
                  : "the file can't be opened");
}

void reportOtherForm(const std::string& openedName, std::string_view form,
                     BlockFindings& findings) {
  const FileKind& kind = kindOfFile(openedName);
  std::string what;
  if (kind.name == form) {
    what = fmt::format("this is {}, but the size of the whole in its first bytes is wrong", form);
  } else if (!kind.name.empty()) {
    what = fmt::format("this is {}, and {} reads {} of this name", kind.name,
                       findings.block().row->keyword, form);
  } else if (sizeOf(openedName) == 0) {
    what = fmt::format("the file has 0 bytes, and isn't {}", form);
  } else {
    what = fmt::format("this isn't {}", form);
  }
  findings.addAtFile("unreadable-file", what,
                     kind.name == form ? "" : conversionHint(openedName, kind, findings));
}

}  // namespace tavrel::kit
