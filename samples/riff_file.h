// Walks a RIFF file on disk, one chunk at a time, through the platform's mmio calls. Reads nothing
// ahead and keeps nothing: a descent stands for the position in the file. Whoever opened the file
// closes it. Every operation tells a failure by false and prints nothing.
#pragma once

#include <cstdint>

#include "foundation/file_name.h"
#include "platform/mmio.h"

namespace tavrel {

/// Ids and form types are given as texts of four characters. The caller owns each ChunkInfo, which
/// is cleared before it is filled.
class RiffFile : public FileName {
 public:
  explicit RiffFile(const char* fullName);

  /// Opens the file under `name`. False if it is open already.
  bool open();

  /// False if the file is closed already.
  bool close();

  /// Finds the next RIFF chunk of `formType` and moves to its first chunk.
  bool descendRiff(const char* formType, ChunkInfo& info);

  /// Finds the next LIST chunk of `listType` and moves to its first chunk.
  bool descendList(const char* listType, ChunkInfo& info);

  /// Finds the next chunk with `id` inside `parent` and moves to its content.
  bool descendChunk(const char* id, ChunkInfo& info, ChunkInfo parent);

  // The same without a parent: the search ends with the file.
  bool descendNamedChunk(const char* id, ChunkInfo& info);
  bool descendChunkById(std::uint32_t value, ChunkInfo& info);

  /// Is there another RIFF chunk of `formType`? If so, moves behind it.
  bool hasRiffForm(const char* formType, ChunkInfo& info);

  /// Does the file hold as many bytes from here on as the chunk just descended into claims?
  [[nodiscard]] bool holdsChunk(const ChunkInfo& info) const;

  /// Reads the content of the chunk just descended into; all of its bytes must come.
  bool readChunk(const ChunkInfo& info, void* destination);

  /// Reads `count` bytes, all of which must come.
  bool readBytes(void* destination, std::uint32_t count);

  /// Moves behind the chunk just descended into and its pad byte.
  bool ascend(const ChunkInfo& info);

  /// Writes the four characters of `value`, least significant byte first, and a terminating zero.
  static void fourCcToText(std::uint32_t value, char* text);

  /// Are the four characters of `text` those of `value`?
  static bool fourCcEquals(const char* text, std::uint32_t value);

  MmioHandle handle = nullptr;  ///< null while closed
  bool isOpen = false;

 private:
  bool descend(ChunkInfo& info, const ChunkInfo* parent, std::uint32_t flags);
};

}  // namespace tavrel
