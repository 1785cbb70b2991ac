// A binary file behind a mode chosen before opening: the one class that reads and writes whole
// files. Owns its streams and its name. Operations give false and leave the code of the failure in
// `error`, where it stays; `reportError` puts it into words. Nothing throws.
#pragma once

#include <cstdint>
#include <fstream>

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

class DiskFile {
 public:
  /// No mode and no name: `setMode` and `setName` come before `open`.
  DiskFile();

  /// Closed. A null `path` stands for the empty text. A failure is left in `error`.
  DiskFile(std::uint32_t fileMode, const char* name, const char* path);

  // These three refuse an open file.
  bool setName(const char* name);
  bool setPath(const char* path);
  /// Any value is taken here; `open` judges it.
  bool setMode(std::uint32_t newMode);

  /// Opens the file in its mode. A directory can't be opened, nor a pipe for writing.
  bool open();

  /// Closes the file. False with `errorWrite` if what was written can't be flushed; the file is
  /// closed all the same.
  bool close();

  /// Reads exactly `length` bytes from the current position; fewer are a failure.
  bool read(void* buffer, std::uint32_t length);

  /// With a null `buffer`: reads the whole file into a new block and gives its size in `length`.
  /// With a block: reads `length` bytes into it. The caller owns the block.
  bool readAll(ByteBlock& buffer, std::uint32_t& length);

  /// `open`, `readAll`, `close`, up to the first failure.
  bool readWhole(ByteBlock& buffer, std::uint32_t& length);

  /// Writes `length` bytes at the current position.
  bool write(const void* buffer, std::uint32_t length);

  /// `open`, `write`, `close`, up to the first failure. A null buffer fails without a code.
  bool writeWhole(const void* buffer, std::uint32_t length);

  /// Reads the bytes from `start` up to but without `end`.
  bool readRange(void* buffer, std::uint32_t start, std::uint32_t end);

  /// Moves to `position`, counted from the start of the file.
  bool seek(std::uint32_t position);

  /// The file's size; moves the position to the start. False with `errorRead` for a file of 4 GiB
  /// or more and for one whose size can't be told.
  bool getSize(std::uint32_t& size);

  /// The row of the error table for `error`, its "%s" unfilled; null if there is no error.
  [[nodiscard]] const char* errorText() const;

  /// Did this file fail? If so, hands the row of `error`, with the file's name, to the log.
  [[nodiscard]] bool reportError() const;

  bool isOpen = false;
  FileName fileName;
  std::uint32_t mode = kNoMode;
  std::uint32_t error = errorNone;

 protected:
  /// What a row of the error table says for its "%s": the name without its path.
  [[nodiscard]] const char* nameInMessages() const;

 private:
  static constexpr std::uint32_t kNoMode = 0xFFFFFFFF;
  static constexpr std::int32_t kFlagsNotChosen = -1;

  bool fail(std::uint32_t code);
  bool mayRead(const void* buffer);
  bool openStream(const char* fullName);

  std::ofstream output;
  std::ifstream input;
  std::int32_t openFlags = kFlagsNotChosen;
  bool hasNoSize = false;  // a pipe or a device: it opens, and nothing can be read from it
};

}  // namespace tavrel
