#include "platform/file_identity.h"

namespace tavrel {

std::string inOtherCase(std::string name) {
  for (char& c : name) {
    const bool isLetter = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    c = isLetter ? static_cast<char>(c ^ 0x20) : c;
  }
  return name;
}

}  // namespace tavrel

#ifdef _WIN32

#include <windows.h>

namespace tavrel {

std::optional<FileIdentity> fileIdentity(const char* path) {
  constexpr DWORD kSharedByAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  // FILE_FLAG_BACKUP_SEMANTICS opens folders too.
  HANDLE file = CreateFileA(path, 0, kSharedByAll, nullptr, OPEN_EXISTING,
                            FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return std::nullopt;
  }
  BY_HANDLE_FILE_INFORMATION facts{};
  const bool isKnown = GetFileInformationByHandle(file, &facts) != 0;
  CloseHandle(file);
  if (!isKnown) {
    return std::nullopt;
  }
  const std::uint64_t high = facts.nFileIndexHigh;
  return FileIdentity{facts.dwVolumeSerialNumber, (high << 32U) | facts.nFileIndexLow};
}

bool ignoresCase(const char* /*folder*/) { return true; }

}  // namespace tavrel

#else

#include <sys/stat.h>

#include <filesystem>
#include <system_error>

namespace tavrel {

std::optional<FileIdentity> fileIdentity(const char* path) {
  struct stat status {};
  if (stat(path, &status) != 0) {
    return std::nullopt;
  }
  return FileIdentity{static_cast<std::uint64_t>(status.st_dev),
                      static_cast<std::uint64_t>(status.st_ino)};
}

bool ignoresCase(const char* folder) {
  std::error_code error;
  const std::filesystem::path whole = std::filesystem::canonical(folder, error);
  const std::filesystem::path other = whole.parent_path() / inOtherCase(whole.filename().string());
  return !error && other != whole && fileIdentity(other.c_str()) == fileIdentity(whole.c_str());
}

}  // namespace tavrel

#endif
