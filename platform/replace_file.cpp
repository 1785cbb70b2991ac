#include "platform/replace_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdio>

#include "platform/host_path.h"
#include "platform/last_error.h"
#include "platform/move_file.h"

#ifdef _WIN32
#include <io.h>
#else
#include <filesystem>
#endif

namespace tavrel {

namespace {

#ifdef _WIN32

constexpr int kHostFlags = O_BINARY | O_NOINHERIT;
constexpr bool kReplacesReadOnlyFiles = false;

int syncFile(int descriptor) { return _commit(descriptor); }

// Links are rare on this host, and are treated as the files that they lead to.
bool isLink(const std::string& /*path*/) { return false; }
std::error_code followLinks(std::string& /*path*/) { return {}; }

#else

namespace fs = std::filesystem;

constexpr int kHostFlags = O_CLOEXEC;
constexpr bool kReplacesReadOnlyFiles = true;

int syncFile(int descriptor) { return fsync(descriptor); }

bool isLink(const std::string& path) {
  std::error_code ignored;
  return fs::is_symlink(fs::symlink_status(path, ignored));
}

/// Replaces the path of a link by that of its target, which need not exist.
std::error_code followLinks(std::string& path) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code isNoLink;
    const fs::path next = fs::read_symlink(path, isNoLink);
    if (isNoLink) {
      return {};
    }
    path = (fs::path(path).parent_path() / next).native();
  }
  return std::make_error_code(std::errc::too_many_symbolic_link_levels);
}

#endif

constexpr unsigned kModeOfNewFiles = 0666;

/// A file without any write bit counts as read-only for root, too.
bool isReadOnly(const std::string& path, unsigned mode) {
  constexpr unsigned kWriteBits = 0222;
  return (mode & kWriteBits) == 0 || access(path.c_str(), W_OK) != 0;
}

/// Returns why what is at `path`, with this mode, can't be replaced.
std::error_code whyIrreplaceable(const std::string& path, unsigned mode, Existing existing) {
  if (existing == Existing::refuse) {
    return std::make_error_code(std::errc::file_exists);
  }
  if (S_ISDIR(mode)) {
    return std::make_error_code(std::errc::is_a_directory);
  }
  if (!S_ISREG(mode)) {
    return std::make_error_code(std::errc::not_supported);
  }
  const bool mustBeWritable = existing == Existing::followLink || !kReplacesReadOnlyFiles;
  return mustBeWritable && isReadOnly(path, mode)
             ? std::make_error_code(std::errc::permission_denied)
             : std::error_code();
}

}  // namespace

ReplacementFile::~ReplacementFile() { discard(); }

std::error_code ReplacementFile::createNew(const std::string& target, Existing existing) {
  target_ = target;
  existing_ = existing;
  if (existing == Existing::followLink) {
    if (const std::error_code error = followLinks(target_)) {
      return error;
    }
  }
  if (isLink(target_)) {
    return existing == Existing::refuse ? std::make_error_code(std::errc::file_exists)
                                        : createTemporary(kModeOfNewFiles);
  }
  struct stat old {};
  if (stat(target_.c_str(), &old) != 0) {
    return createTemporary(kModeOfNewFiles);
  }
  const std::error_code error = whyIrreplaceable(target_, old.st_mode, existing);
  return error ? error : createTemporaryLike(old.st_mode);
}

/// Makes a temporary file with the mode, less the umask.
std::error_code ReplacementFile::createTemporary(unsigned mode) {
  constexpr int kTries = 100;
  const std::size_t separator = target_.find_last_of(kHostSeparators);
  const std::string folder = target_.substr(0, separator + 1);  // empty without a separator
  const auto now = std::chrono::system_clock::now().time_since_epoch().count();
  std::error_code error;
  for (int i = 0; i < kTries; ++i) {
    temporaryPath_ = folder + ".tavrel-" + std::to_string(now + i) + ".tmp";
    const HeldSignals held;
    descriptor_ = open(temporaryPath_.c_str(), O_CREAT | O_EXCL | O_WRONLY | kHostFlags, mode);
    if (descriptor_ != kClosed) {
      temporary_.doom(temporaryPath_.c_str());
      return {};
    }
    error = lastError();
    if (error != std::errc::file_exists) {
      break;
    }
  }
  temporaryPath_.clear();
  return error;
}

/// Makes a temporary file with the mode of an old one, on file systems that have modes. At no time
/// can anyone open it who couldn't open the old one.
std::error_code ReplacementFile::createTemporaryLike(unsigned mode) {
  constexpr unsigned kPermissions = 0777;
  const std::error_code error = createTemporary(mode & kPermissions);
  if (!error) {
    chmod(temporaryPath_.c_str(), mode & kPermissions);
  }
  return error;
}

std::error_code ReplacementFile::write(const void* source, std::uint64_t count) {
  constexpr std::uint64_t kLongestPiece = std::uint64_t{1} << 30U;
  const auto* bytes = static_cast<const char*>(source);
  while (count > 0) {
    const auto piece = static_cast<unsigned>(std::min(count, kLongestPiece));
    const auto written = ::write(descriptor_, bytes, piece);
    if (written < 0 && errno != EINTR) {
      return lastError();
    }
    const auto done = static_cast<std::uint64_t>(std::max<std::int64_t>(written, 0));
    bytes += done;
    count -= done;
  }
  return {};
}

std::error_code ReplacementFile::flushToDisk() {
  std::error_code error;
  if (syncFile(descriptor_) != 0) {
    error = lastError();
  }
  const std::error_code closing = closeDescriptor();
  return error ? error : closing;
}

std::error_code ReplacementFile::replaceFile() {
  const HeldSignals held;
  const std::error_code error = moveFile(temporaryPath_, target_, existing_ != Existing::refuse);
  if (!error) {
    temporary_.spare();
    temporaryPath_.clear();
  }
  return error;
}

void ReplacementFile::discard() {
  closeDescriptor();
  if (!temporaryPath_.empty()) {
    std::remove(temporaryPath_.c_str());
    temporary_.spare();
    temporaryPath_.clear();
  }
}

std::error_code ReplacementFile::closeDescriptor() {
  const int result = descriptor_ != kClosed ? close(descriptor_) : 0;
  descriptor_ = kClosed;
  return result == 0 ? std::error_code() : lastError();
}

}  // namespace tavrel
