// Reader of RIFF files, one chunk at a time, through the platform's mmio calls. Keeps no state of
// its own: descending into a chunk moves the file position.
// Whoever opens the file closes it. Every operation returns false on failure and prints nothing.
#pragma once

#include <cstdint>

#include "foundation/file_name.h"
#include "platform/mmio.h"

namespace tavrel {

/// Ids and form types are passed as four characters. Operations that find a chunk clear the
/// caller's ChunkInfo before they fill it.
class RiffFile : public FileName {
 public:
  explicit RiffFile(const char* fullName);
  RiffFile(const RiffFile&) = delete;
  RiffFile(RiffFile&&) = delete;
  RiffFile& operator=(const RiffFile&) = delete;
  RiffFile& operator=(RiffFile&&) = delete;

  /// Leaves an open file open: whoever opened it must close it.
  ~RiffFile() = default;

  /// Opens the file called `name`. Returns false if it is open already.
  bool open();

  /// Returns false if the file is not open.
  bool close();

  /// Finds the next RIFF chunk of `formType` and moves to its first chunk.
  bool descendRiff(const char* formType, ChunkInfo& info);

  /// Finds the next chunk with `id` inside `parent` and moves to its content.
  bool descendChunk(const char* id, ChunkInfo& info, ChunkInfo parent);

  /// Returns true if at least as many bytes are left in the file as the chunk just descended into
  /// states.
  [[nodiscard]] bool holdsChunk(const ChunkInfo& info) const;

  /// Reads the whole content of the chunk just descended into.
  bool readChunk(const ChunkInfo& info, void* destination);

  /// Reads exactly `count` bytes.
  bool readBytes(void* destination, std::uint32_t count);

  /// Moves past the chunk just descended into and its pad byte.
  bool ascend(const ChunkInfo& info);

  // Not used by the tool; for programs that inspect RIFF files, such as tavkit.

  /// Finds the next LIST chunk of `listType` and moves to its first chunk.
  bool descendList(const char* listType, ChunkInfo& info);

  /// Finds the next chunk inside `parent`, whatever its id, and moves to its content.
  bool descendNext(ChunkInfo& info, ChunkInfo parent);

  // Find the next chunk with an id up to the end of the file and move to its content.
  bool descendNamedChunk(const char* id, ChunkInfo& info);
  bool descendChunkById(std::uint32_t value, ChunkInfo& info);

  /// Moves past the next RIFF chunk of `formType`; returns false if there is none.
  bool hasRiffForm(const char* formType, ChunkInfo& info);

  /// Writes the four characters of `value`, least significant byte first, and a terminating zero.
  static void fourCcToText(std::uint32_t value, char* text);

  /// Compares the four characters of `text` with those of `value`.
  static bool fourCcEquals(const char* text, std::uint32_t value);

  MmioHandle handle = nullptr;  ///< null while closed
  bool isOpen = false;

 private:
  bool descend(ChunkInfo& info, const ChunkInfo* parent, std::uint32_t flags);
};

}  // namespace tavrel
