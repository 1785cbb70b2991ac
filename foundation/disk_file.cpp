#include "foundation/disk_file.h"

#include <algorithm>
#include <array>
#include <limits>
#include <new>
#include <string>

#include "platform/file_cache.h"
#include "platform/host_path.h"
#include "platform/transfer.h"

namespace tavrel {

namespace {

struct ModeRow {
  std::uint32_t mode;
  std::ios_base::openmode flags;
  FileError openError;
};

constexpr std::array<ModeRow, 3> kModes{{
    {modeRead, std::ios::in, errorNotFound},
    {modeWrite, std::ios::out | std::ios::trunc, errorOpenForWriting},
    {modeAppend, std::ios::out | std::ios::app, errorOpenForAppending},
}};

/// Returns null for a mode outside the table.
const ModeRow* findMode(std::uint32_t mode) {
  const auto* row = std::find_if(kModes.begin(), kModes.end(), [mode](const ModeRow& candidate) {
    return candidate.mode == mode;
  });
  return row != kModes.end() ? row : nullptr;
}

/// Returns the size of the file, or a negative number if it has none. Moves to the start and leaves
/// the stream in the state that it had.
std::int64_t measure(std::fstream& stream) {
  const std::ios_base::iostate state = stream.rdstate();
  stream.clear();
  stream.seekg(0, std::ios::end);
  const std::int64_t end = stream.tellg();
  stream.seekg(0);
  stream.clear(state);
  return end;
}

}  // namespace

DiskFile::DiskFile() { setPath(""); }

DiskFile::DiskFile(std::uint32_t fileMode, const char* name, const char* path) : mode(fileMode) {
  setName(name);
  setPath(path != nullptr ? path : "");
}

bool DiskFile::fail(std::uint32_t code) {
  error = code;
  return false;
}

bool DiskFile::setName(const char* name) {
  if (isOpen) {
    return fail(errorIsOpen);
  }
  return fileName.setName(name) || fail(fileName.error);
}

bool DiskFile::setPath(const char* path) {
  if (isOpen) {
    return fail(errorIsOpen);
  }
  return fileName.setPath(path) || fail(fileName.error);
}

bool DiskFile::setMode(std::uint32_t newMode) {
  if (isOpen) {
    return fail(errorIsOpen);
  }
  mode = newMode;
  return true;
}

bool DiskFile::open() {
  if (isOpen) {
    return fail(errorAlreadyOpen);
  }
  const ModeRow* row = findMode(mode);
  if (row == nullptr) {
    return fail(errorBadMode);
  }
  if (openFlags_ == kFlagsNotChosen) {
    openFlags_ = static_cast<std::int32_t>(row->flags);
  }
  const char* fullName = fileName.getNameAndPath();
  if (fullName == nullptr) {
    return fail(fileName.error);
  }
  try {
    isOpen = openStream(fullName);
  } catch (const std::bad_alloc&) {
    return fail(errorNoMemory);
  }
  return isOpen || fail(row->openError);
}

bool DiskFile::openStream(const char* fullName) {
  if (lent_ != nullptr) {
    setStreamBuffer(lent_);
    hasSize_ = true;
    return true;
  }
  const std::string path = hostPath(fullName);
  if (mode == modeRead && openCached(path)) {
    return true;
  }
  const PathKind kind = pathKind(path.c_str());
  // Opening a pipe would block until another process opens its other end.
  if (kind == PathKind::directory || (kind == PathKind::pipe && mode != modeRead)) {
    return false;
  }
  if (mode == modeRead && (kind == PathKind::pipe || kind == PathKind::other)) {
    return true;  // left unopened, so that every access fails
  }
  // The kept flags may be those of another mode, which lack the direction of this one.
  stream_.open(path, static_cast<std::ios_base::openmode>(openFlags_) | std::ios::binary |
                         (mode == modeRead ? std::ios::in : std::ios::out));
  // Asked again, because the file may be new. A device that the host doesn't list, such as nul, is
  // still missing.
  hasSize_ = pathKind(path.c_str()) == PathKind::file;
  return stream_.good();
}

bool DiskFile::openCached(const std::string& path) {
  cached_ = openCachedFile(path);
  if (!cached_) {
    return false;
  }
  setStreamBuffer(cached_.get());
  hasSize_ = true;
  return true;
}

/// Makes `stream_` use `buffer` instead of its own.
void DiskFile::setStreamBuffer(std::streambuf* buffer) {
  static_cast<std::ios&>(stream_).rdbuf(buffer);
}

bool DiskFile::close() {
  if (!isOpen) {
    return fail(errorAlreadyClosed);
  }
  isOpen = false;
  const bool complete = closeStream();
  if (findMode(mode) == nullptr) {
    return fail(errorBadMode);
  }
  return mode == modeRead || complete || fail(errorWrite);
}

/// Returns false if an operation on the stream has failed, or if what was written can't be flushed.
bool DiskFile::closeStream() {
  if (lent_ == nullptr && !cached_) {
    stream_.close();
    return stream_.good();
  }
  const bool complete = stream_.flush().good();
  setStreamBuffer(stream_.rdbuf());
  cached_.reset();
  return complete;
}

bool DiskFile::canRead(const void* buffer) {
  if (!isOpen) {
    return fail(errorNotOpen);
  }
  if (mode != modeRead) {
    return fail(errorBadMode);
  }
  return buffer != nullptr || fail(errorNullBuffer);
}

bool DiskFile::read(void* buffer, std::uint32_t length) {
  if (!canRead(buffer)) {
    return false;
  }
  readBytes(stream_, buffer, length);
  return stream_.good() || fail(errorRead);
}

bool DiskFile::write(const void* buffer, std::uint32_t length) {
  if (!isOpen) {
    return fail(errorWriteNotOpen);
  }
  if (mode == modeRead || findMode(mode) == nullptr) {
    return fail(errorBadMode);
  }
  writeBytes(stream_, buffer, length);
  return stream_.good() || fail(errorWrite);
}

bool DiskFile::seek(std::uint32_t position) {
  if (!isOpen) {
    return fail(errorNotOpen);
  }
  if (mode == modeAppend) {
    return fail(errorSeekInAppendMode);
  }
  if (findMode(mode) == nullptr) {
    return fail(errorBadMode);
  }
  if (mode == modeRead) {
    stream_.seekg(position);
  } else {
    stream_.seekp(position);
  }
  return stream_.good() || fail(errorSeek);
}

bool DiskFile::getSize(std::uint32_t& size) {
  if (!isOpen) {
    return fail(errorNotOpen);
  }
  if (findMode(mode) == nullptr) {
    return fail(errorBadMode);
  }
  const std::int64_t end = measure(stream_);
  if (!hasSize_ || end < 0 || end > std::numeric_limits<std::uint32_t>::max()) {
    return fail(errorRead);
  }
  size = static_cast<std::uint32_t>(end);
  return true;
}

}  // namespace tavrel
