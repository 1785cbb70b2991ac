// Reads a whole big-endian IFF file into memory, makes one pass over its chunks and lists them.
// Owns the image and the list; the records point into the image. `load` prints one line if the file
// is of another form type; other failures are only told by false.
//
// The file, numbers big-endian:
//
// | offset | width | content                                                            |
// |--------|-------|--------------------------------------------------------------------|
// | 0      | 4     | "FORM" in a proper file; not compared with anything                |
// | 4      | 4     | form size: size of what follows this field                         |
// | 8      | 4     | form type                                                          |
// | 12     |       | chunks                                                             |
//
// One chunk:
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

/// One chunk of the file. `size` is what the file claims; see IffFile::bytesHeld.
struct IffChunk {
  std::uint32_t id = 0;          ///< the first character is the most significant byte
  std::uint32_t size = 0;        ///< as claimed in the file
  std::uint8_t* data = nullptr;  ///< the first byte of the content, in the image
};

/// The id whose characters are the first four of `text`.
constexpr std::uint32_t iffId(const char* text) {
  std::uint32_t id = 0;
  for (unsigned i = 0; i < 4; ++i) {
    id = id << 8 | static_cast<std::uint8_t>(text[i]);
  }
  return id;
}

class IffFile {
 public:
  using IdText = std::array<char, 4 + 1>;

  /// No disk access yet.
  explicit IffFile(const char* fullName);

  /// Reads the file and lists its chunks. An object serves one `load`. False: the file can't be
  /// read, is not of `formType`, or there is no memory. A chunk that passes the end of the form or
  /// of the file is the last one; a header that the file doesn't hold wholly is none.
  bool load(std::uint32_t formType);

  [[nodiscard]] bool hasChunk(std::uint32_t id) const;

  // These answer for the first chunk with `id`. False, with the out-values unchanged, if there is
  // none.
  bool getChunk(std::uint32_t id, std::uint8_t*& data, std::uint32_t& size) const;
  bool getChunkSize(std::uint32_t id, std::uint32_t& size) const;
  bool getChunkRecord(std::uint32_t id, const IffChunk*& record) const;

  /// Frees the image: what the records point to is gone.
  void releaseImage();

  /// Gives up ownership of the image; what the records point to lives on in it.
  ByteBlock takeImage();

  /// Writes the four characters of `id` and a terminating zero.
  static void idToText(std::uint32_t id, char* text);

  bool verbose = false;  ///< `load` prints the chunk list

 protected:
  /// How many bytes of a chunk's claimed content the file really holds.
  [[nodiscard]] std::uint32_t bytesHeld(const std::uint8_t* data, std::uint32_t size) const;

 private:
  bool readImage();
  bool isOfType(std::uint32_t formType) const;
  bool listChunks();
  template <typename Visit>
  void walkChunks(Visit visit);
  bool readChunk(IffChunk& chunk) const;
  bool passChunk(const IffChunk& chunk);
  void listChunk(const IffChunk& chunk);

  std::uint32_t cursor = 0;       // offset in the image of the next chunk header
  std::uint32_t bytesWalked = 0;  // of the form's content, the form type included
  std::uint32_t formSize = 0;
  std::uint32_t fileSize = 0;
  ByteBlock image;
  std::vector<IffChunk> chunks;  // in file order
  DiskFile disk;
};

}  // namespace tavrel
