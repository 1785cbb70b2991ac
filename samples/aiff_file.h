// Reader of AIFF files: samples, instrument data and markers. Once loaded, the samples have the
// form of a WAV file: 16-bit samples little-endian, 8-bit samples unsigned. They stay in the base's
// image and are converted there.
// `load` reports a file that is not AIFF or is damaged in a line on standard error. It is silent
// about a missing chunk and about memory. All records are zero until `load` fills them.
#pragma once

#include <cstdint>

#include "samples/aiff_records.h"
#include "samples/iff_file.h"

namespace tavrel {

/// Why a file wasn't loaded.
enum class AiffFault {
  none,
  cannotRead,
  noForm,    ///< of another form type, or too short to have one
  noCommon,  ///< no `COMM` chunk
  noSound,   ///< no `SSND` chunk
  damaged,   ///< the file holds too few bytes of `damagedChunk`
  noMemory,
};

class AiffFile : public IffFile {
 public:
  /// Doesn't access the disk.
  explicit AiffFile(const char* fullName);

  /// Reads the file and converts its samples. An object serves one `load`.
  bool load();

  // On an object that isn't loaded these return false and set the out-values to 0.

  /// Returns the size in bytes: 2 per frame of 16 bits, 1 per frame of 8 bits, 0 for other widths.
  /// The number of channels is ignored.
  bool getDataSize(std::uint32_t& dataSize) const;
  bool getBitsPerSample(std::uint16_t& bits) const;

  /// Returns the sustain loop (`which` 1) or the release loop (2), with the positions of its
  /// markers in sample frames. On a loaded object it returns false, with the out-values unchanged,
  /// for any other `which` and for a loop whose markers don't exist.
  bool getLoop(std::int32_t which, std::uint32_t& mode, std::uint32_t& start,
               std::uint32_t& end) const;

  /// Returns the sample bytes, which the caller may change in place. Null if nothing is loaded.
  [[nodiscard]] std::uint8_t* getSampleData() const;

  /// Returns 0 if there is no sustain loop or nothing is loaded.
  [[nodiscard]] std::uint32_t getSustainLoopMode() const;

  AiffCommon common;
  AiffSound sound;
  AiffInstrument instrument;
  AiffMarkerList markerList;
  bool loaded = false;

  // Not used by the tool; for programs that inspect AIFF files, such as tavkit.

  /// Returns why `load` failed.
  [[nodiscard]] AiffFault fault() const { return fault_; }

  /// Returns the id of the chunk that made `load` fail as damaged, else 0.
  [[nodiscard]] std::uint32_t damagedChunk() const { return damagedChunk_; }

  // On an object that isn't loaded these return false and set the out-value to 0.
  bool getChannels(std::uint16_t& channels) const;
  bool getSampleRate(std::uint32_t& rate) const;

  bool dump = false;  ///< `load` prints the instrument and the markers

 private:
  struct Content;
  enum class Presence { missing, present, damaged };

  bool fail(AiffFault fault);
  bool failNotAiff();
  bool failDamaged(std::uint32_t chunkId);
  Presence findContent(std::uint32_t id, std::uint32_t leastSize, Content& content);
  bool findRequired(std::uint32_t id, std::uint32_t leastSize, AiffFault ifMissing,
                    Content& content);
  bool parseCommon();
  bool parseSound();
  bool parseInstrument();
  bool parseMarkers();
  bool parseMarkerTable(const std::uint8_t* bytes, std::uint32_t left);
  [[nodiscard]] std::uint64_t dataSizeOfFrames() const;
  void convertSamples() const;

  void dumpInstrument() const;
  void dumpMarkerListHead() const;
  static void dumpMarker(const AiffMarker& marker);

  AiffFault fault_ = AiffFault::none;
  std::uint32_t damagedChunk_ = 0;
};

}  // namespace tavrel
