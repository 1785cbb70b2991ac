// A binary file with a mode chosen before opening. Owns its stream and its name. Operations return
// false on failure and leave its code in `error`, where it stays; `reportError` prints the message.
// Nothing throws.
#pragma once

#include <cstdint>
#include <fstream>
#include <memory>
#include <string>

#include "foundation/byte_block.h"
#include "foundation/file_name.h"

namespace tavrel {

constexpr std::uint32_t modeRead = 0;    ///< the file must exist
constexpr std::uint32_t modeWrite = 1;   ///< created if missing, cut to length 0 if present
constexpr std::uint32_t modeAppend = 2;  ///< created if missing, every write goes to its end

/// Codes of `DiskFile::error`, and rows of the error table.
enum FileError : std::uint32_t {
  errorNone = 0,
  errorRead = 1,
  errorWrite = 2,
  errorOpenForWriting = 3,
  errorNotFound = 4,
  errorNoMemory = 5,
  errorAlreadyOpen = 6,
  errorNoFileName = 7,
  errorOpenForAppending = 8,
  errorBadMode = 9,
  errorAlreadyClosed = 10,
  errorWriteNotOpen = 11,
  errorNotOpen = 12,
  errorIsOpen = 13,
  errorNullBuffer = 14,
  errorSeekInAppendMode = 15,
  errorSeek = 16,
};
static_assert(errorNoMemory == FileName::kOutOfMemory, "copied from FileName::error");

class DiskFile {
 public:
  /// Outcome of `readImage`.
  enum class WholeRead {
    complete,
    failed,    ///< the code is in `error`
    noMemory,  ///< for the block; `error` is unchanged
  };

  /// No mode and no name: call `setMode` and `setName` before `open`.
  DiskFile();

  /// Closed. A null `path` counts as empty. A failure is left in `error`.
  DiskFile(std::uint32_t fileMode, const char* name, const char* path);

  // These three fail on an open file.
  bool setName(const char* name);
  bool setPath(const char* path);
  /// Accepts any value; `open` checks it.
  bool setMode(std::uint32_t newMode);

  /// Opens the file in its mode. Fails for a directory, and for a pipe that would be written.
  bool open();

  /// Closes the file, after a failure too. Returns false with `errorWrite` if what was written
  /// can't be flushed.
  bool close();

  /// Reads exactly `length` bytes from the current position; fewer are a failure.
  bool read(void* buffer, std::uint32_t length);

  /// Opens the file, reads it whole and closes it. Allocates `image` with room for `spareBytes`
  /// more, which are uninitialised. Sets `size`, in bytes, before it allocates `image`; after a
  /// failure either may be set.
  WholeRead readImage(ByteBlock& image, std::uint32_t& size, std::uint32_t spareBytes = 0);

  /// Writes `length` bytes at the current position.
  bool write(const void* buffer, std::uint32_t length);

  /// Moves to `position`, counted from the start of the file.
  bool seek(std::uint32_t position);

  /// Returns the file's size in `size` and moves to the start, after a failed read too. Fails with
  /// `errorRead` for a file of 4 GiB or more and for one without a size, such as a pipe.
  bool getSize(std::uint32_t& size);

  /// Returns the row of the error table for `error`, its "%s" unfilled; null if there is no error
  /// or no such row.
  [[nodiscard]] const char* errorText() const;

  /// Returns true if an operation failed, after logging the row of `error` with the file's name.
  [[nodiscard]] bool reportError() const;

  // Not used by the tool; for programs that handle small files whole.

  /// With a null `buffer`: reads the whole file into a new block and sets `length` to its size.
  /// With a block: reads `length` bytes into it. The caller owns the block.
  bool readAll(ByteBlock& buffer, std::uint32_t& length);

  /// `open`, `readAll` and `close`, up to the first failure.
  bool readWhole(ByteBlock& buffer, std::uint32_t& length);

  /// `open`, `write` and `close`, up to the first failure. A null buffer fails without a code.
  bool writeWhole(const void* buffer, std::uint32_t length);

  /// Reads the bytes from `start` up to but not including `end`.
  bool readRange(void* buffer, std::uint32_t start, std::uint32_t end);

  // Not used by the tool; for programs that keep in memory, or compare, what would be a file.

  /// Makes `open` use `buffer`, as it is, instead of the file of its name. Borrows it for as long
  /// as the object exists.
  void useBuffer(std::streambuf& buffer) { lent_ = &buffer; }

  bool isOpen = false;
  FileName fileName;
  std::uint32_t mode = kNoMode;
  std::uint32_t error = errorNone;

 protected:
  /// Returns what replaces the "%s" of an error row: the name without its path.
  [[nodiscard]] const char* nameInMessages() const;

 private:
  static constexpr std::uint32_t kNoMode = 0xFFFFFFFF;
  static constexpr std::int32_t kFlagsNotChosen = -1;

  bool fail(std::uint32_t code);
  bool canRead(const void* buffer);
  WholeRead readOpenImage(ByteBlock& image, std::uint32_t& size, std::uint32_t spareBytes);
  bool openStream(const char* fullName);
  bool openCached(const std::string& path);
  void setStreamBuffer(std::streambuf* buffer);
  bool closeStream();

  std::unique_ptr<std::streambuf> cached_;  // while a file of the cache is open (file_cache.h)
  std::streambuf* lent_ = nullptr;          // see useBuffer
  std::fstream stream_;
  std::int32_t openFlags_ = kFlagsNotChosen;
  bool hasSize_ = false;  // a regular file; a pipe or a device opens, but has no size
};

}  // namespace tavrel
