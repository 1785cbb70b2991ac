// Reads an AIFF 1.3 file: its samples, its instrument data and its markers. When it has loaded, the
// samples stand in the form of a WAV file: 16-bit ones little-endian, 8-bit ones unsigned. They
// stay in the image of the base, and are changed there.
// `load` tells a file that is not AIFF, or is damaged, in a line on standard error; a missing chunk
// and missing memory by false alone. All fields are zero until `load` fills them.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

#include "samples/iff_file.h"

namespace tavrel {

// Offsets count from the first content byte of each chunk; all numbers are big-endian.

/// `COMM`, which every file has:
///
/// | offset | width | field      |
/// |--------|-------|------------|
/// | 0      | 2     | channels   |
/// | 2      | 4     | frames     |
/// | 6      | 2     | sampleSize |
/// | 8      | 10    | sampleRate |
struct AiffCommon {
  static constexpr std::uint32_t kStoredSize = 2 + 4 + 2 + 10;

  std::uint32_t id = 0;
  std::uint32_t size = 0;  ///< 18, whatever the chunk claims
  std::uint16_t channels = 0;
  std::uint32_t frames = 0;
  std::uint16_t sampleSize = 0;  ///< in bits
  std::uint32_t sampleRate = 0;  ///< in whole hertz
};

/// `SSND`, which every file has:
///
/// | offset | width | field                              |
/// |--------|-------|------------------------------------|
/// | 0      | 4     | offset, not applied                |
/// | 4      | 4     | blockSize, not applied             |
/// | 8      |       | soundData, whatever `offset` says  |
struct AiffSound {
  static constexpr std::uint32_t kStoredSize = 4 + 4;

  std::uint32_t id = 0;
  std::uint32_t size = 0;  ///< as the chunk claims
  std::uint32_t offset = 0;
  std::uint32_t blockSize = 0;
  std::uint8_t* soundData = nullptr;  ///< in the image
};

/// One loop of an instrument:
///
/// | offset | width | field   |
/// |--------|-------|---------|
/// | 0      | 2     | mode    |
/// | 2      | 2     | startId |
/// | 4      | 2     | endId   |
struct AiffLoop {
  static constexpr std::uint32_t kStoredSize = 2 + 2 + 2;

  std::uint32_t mode = 0;    ///< 0 no loop, 1 forward, 2 forwards and backwards
  std::int16_t startId = 0;  ///< which marker, in file order, the first one being 1
  std::int16_t endId = 0;
};

/// `INST`, which a file may have:
///
/// | offset | width | field        |
/// |--------|-------|--------------|
/// | 0      | 1     | rootNote     |
/// | 1      | 1     | detune       |
/// | 2      | 1     | loNote       |
/// | 3      | 1     | hiNote       |
/// | 4      | 1     | lowVelocity  |
/// | 5      | 1     | highVelocity |
/// | 6      | 2     | gain         |
/// | 8      | 6     | sustainLoop  |
/// | 14     | 6     | releaseLoop  |
struct AiffInstrument {
  static constexpr std::uint32_t kStoredSize = 6 * 1 + 2 + 2 * AiffLoop::kStoredSize;

  std::uint32_t id = 0;
  std::uint32_t size = 0;  ///< as the chunk claims
  std::uint8_t rootNote = 0;
  std::int8_t detune = 0;
  std::uint8_t loNote = 0;
  std::uint8_t hiNote = 0;
  std::uint8_t lowVelocity = 0;
  std::uint8_t highVelocity = 0;
  std::int16_t gain = 0;
  AiffLoop sustainLoop;
  AiffLoop releaseLoop;
};

/// One marker:
///
/// | offset     | width  | field                                                            |
/// |------------|--------|------------------------------------------------------------------|
/// | 0          | 2      | id                                                               |
/// | 2          | 4      | position                                                         |
/// | 6          | 1      | length of the name                                               |
/// | 7          | length | name, without terminator                                         |
/// | 7 + length | 0, 1   | pad byte if length is even                                       |
struct AiffMarker {
  static constexpr std::uint32_t kHeaderSize = 2 + 4 + 1;

  std::int16_t id = 0;
  std::uint32_t position = 0;       ///< in sample frames
  std::array<char, 79 + 1> name{};  ///< cut to 79 characters
};

/// `MARK`, which a file may have:
///
/// | offset | width | field                            |
/// |--------|-------|----------------------------------|
/// | 0      | 2     | count                            |
/// | 2      |       | markers, one behind the other    |
struct AiffMarkerList {
  static constexpr std::uint32_t kStoredSize = 2;

  std::uint32_t id = 0;
  std::uint16_t count = 0;
  std::unique_ptr<AiffMarker[]> markers;
};

class AiffFile : public IffFile {
 public:
  /// No disk access yet.
  explicit AiffFile(const char* fullName);

  /// Reads the file and converts its samples. An object serves one `load`.
  bool load();

  // False, with the out-values 0, on an object that isn't loaded.

  /// In bytes: 2 for each frame of 16 bits, 1 for each of 8, none for other widths. The number of
  /// channels plays no part.
  bool getDataSize(std::uint32_t& dataSize) const;
  bool getBitsPerSample(std::uint16_t& bits) const;
  bool getChannels(std::uint16_t& channels) const;
  bool getSampleRate(std::uint32_t& rate) const;

  /// The sustain loop (`which` 1) or the release loop (2), with the positions of its markers in
  /// sample frames. False as well for another loop, or a marker that isn't there; the out-values
  /// are unchanged then.
  bool getLoop(std::int32_t which, std::uint32_t& mode, std::uint32_t& start,
               std::uint32_t& end) const;

  /// The sample bytes, which the caller may change in place. Null if nothing is loaded.
  [[nodiscard]] std::uint8_t* getSampleData() const;

  /// 0 if there is no sustain loop, or nothing is loaded.
  [[nodiscard]] std::uint32_t getSustainLoopMode() const;

  AiffCommon common;
  AiffSound sound;
  AiffInstrument instrument;
  AiffMarkerList markerList;
  bool loaded = false;
  bool dump = false;  ///< `load` prints the instrument and the markers

 private:
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
};

}  // namespace tavrel
