// Reader of big-endian IFF files: reads a whole file into memory and lists its chunks.
// Owns the image and the list; the records point into the image. Operations return false on
// failure. `load` reports a file of another form type in one line and is silent otherwise.
//
// The file, numbers big-endian:
//
// | offset | width | content                                                            |
// |--------|-------|--------------------------------------------------------------------|
// | 0      | 4     | "FORM" in a proper file; not checked                               |
// | 4      | 4     | form size: size of everything after this field                     |
// | 8      | 4     | form type                                                          |
// | 12     |       | chunks                                                             |
//
// A chunk:
//
// | offset | width | content                                                            |
// |--------|-------|--------------------------------------------------------------------|
// | 0      | 4     | id                                                                 |
// | 4      | 4     | size of the content                                                |
// | 8      | size  | content                                                            |
// |        | 0, 1  | pad byte if size is odd; not counted in size                       |
#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "foundation/byte_block.h"
#include "foundation/disk_file.h"

namespace tavrel {

struct IffChunk {
  std::uint32_t id{};    ///< the first character is the most significant byte
  std::uint32_t size{};  ///< as stated in the file; see IffFile::bytesHeld
  std::uint8_t* data{};  ///< first byte of the content, in the image
};

/// Why a file wasn't loaded.
enum class IffFault {
  none,
  cannotRead,
  noForm,    ///< of another form type, or too short to have one
  noMemory,  ///< for the file or its list of chunks
};

class IffFile {
 public:
  using IdText = std::array<char, 4 + 1>;

  /// Doesn't access the disk.
  explicit IffFile(const char* fullName);

  /// Reads the file and lists its chunks. Returns false if the file can't be read or is not of
  /// `formType`, or if memory runs out. A chunk that reaches past the end of the form or the file
  /// is the last one listed; a header that is cut off by the end of the file is not listed. An
  /// object serves one `load`.
  bool load(std::uint32_t formType);

  /// Returns the content and the stated size of the first chunk with `id`, or false without
  /// changing either if there is none.
  bool getChunk(std::uint32_t id, std::uint8_t*& data, std::uint32_t& size) const;

  /// Transfers ownership of the image to the caller. The records keep pointing into it.
  ByteBlock takeImage();

  /// Writes the four characters of `id` and a terminating zero.
  static void idToText(std::uint32_t id, char* text);

  /// Returns how many bytes of a chunk's content are in the file; at most the `size` it states.
  [[nodiscard]] std::uint32_t bytesHeld(const std::uint8_t* data, std::uint32_t size) const;

  // Not used by the tool; for programs that inspect IFF files, such as tavkit.

  /// Returns the records of all chunks, in file order.
  [[nodiscard]] const std::vector<IffChunk>& chunkList() const { return chunks_; }

  [[nodiscard]] bool hasChunk(std::uint32_t id) const;

  // These return false, with the out-value unchanged, if there is no chunk with `id`. Of several,
  // they use the first.
  bool getChunkSize(std::uint32_t id, std::uint32_t& size) const;
  bool getChunkRecord(std::uint32_t id, IffChunk*& record);
  bool getChunkRecord(std::uint32_t id, const IffChunk*& record) const;

  /// Frees the image; the `data` of every record is invalid from then on.
  void releaseImage();

  bool verbose = false;  ///< `load` prints the chunk list

 protected:
  /// Returns why `load` failed.
  [[nodiscard]] IffFault iffFault() const { return fault_; }

 private:
  bool fail(IffFault fault);
  bool readFile();
  bool isOfType(std::uint32_t formType);
  bool listChunks();
  template <typename Visit>
  void walkChunks(Visit visit) const;
  void listChunk(const IffChunk& chunk);

  std::uint32_t fileSize_ = 0;
  IffFault fault_ = IffFault::none;
  ByteBlock image_;
  std::vector<IffChunk> chunks_;  // in file order
  DiskFile disk_;
};

}  // namespace tavrel
