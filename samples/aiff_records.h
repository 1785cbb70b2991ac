// Records of the AIFF chunks that AiffFile reads, and how the file stores them. Offsets count from
// the first content byte of the chunk; all numbers are big-endian.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

namespace tavrel {

/// Common chunk, `COMM`; required:
///
/// | offset | width | field      |
/// |--------|-------|------------|
/// | 0      | 2     | channels   |
/// | 2      | 4     | frames     |
/// | 6      | 2     | sampleSize |
/// | 8      | 10    | sampleRate |
struct AiffCommon {
  static constexpr std::uint32_t kStoredSize = 2 + 4 + 2 + 10;

  std::uint32_t id{};
  std::uint32_t size{};  ///< always 18
  std::uint16_t channels{};
  std::uint32_t frames{};
  std::uint16_t sampleSize{};  ///< in bits
  std::uint32_t sampleRate{};  ///< in whole hertz
};

/// Sound data chunk, `SSND`; required:
///
/// | offset | width | field                              |
/// |--------|-------|------------------------------------|
/// | 0      | 4     | offset, not applied                |
/// | 4      | 4     | blockSize, not applied             |
/// | 8      |       | soundData                          |
struct AiffSound {
  static constexpr std::uint32_t kStoredSize = 4 + 4;

  std::uint32_t id{};
  std::uint32_t size{};  ///< as stated by the chunk
  std::uint32_t offset{};
  std::uint32_t blockSize{};
  std::uint8_t* soundData{};  ///< points into the image
};

/// A loop of an instrument:
///
/// | offset | width | field   |
/// |--------|-------|---------|
/// | 0      | 2     | mode    |
/// | 2      | 2     | startId |
/// | 4      | 2     | endId   |
struct AiffLoop {
  static constexpr std::uint32_t kStoredSize = 2 + 2 + 2;

  std::uint32_t mode{};    ///< 0 no loop, 1 forward, 2 forwards and backwards
  std::int16_t startId{};  ///< number of the marker in file order, from 1
  std::int16_t endId{};
};

/// Instrument chunk, `INST`; optional:
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

  std::uint32_t id{};
  std::uint32_t size{};  ///< as stated by the chunk
  std::uint8_t rootNote{};
  std::int8_t detune{};
  std::uint8_t loNote{};
  std::uint8_t hiNote{};
  std::uint8_t lowVelocity{};
  std::uint8_t highVelocity{};
  std::int16_t gain{};
  AiffLoop sustainLoop;
  AiffLoop releaseLoop;
};

/// A marker:
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

  std::int16_t id{};
  std::uint32_t position{};         ///< in sample frames
  std::array<char, 79 + 1> name{};  ///< at most 79 characters, zero-terminated
};

/// Marker list chunk, `MARK`; optional:
///
/// | offset | width | field                            |
/// |--------|-------|----------------------------------|
/// | 0      | 2     | count                            |
/// | 2      |       | markers, without gaps            |
struct AiffMarkerList {
  static constexpr std::uint32_t kStoredSize = 2;

  std::uint32_t id{};
  std::uint16_t count{};
  std::unique_ptr<AiffMarker[]> markers;
};

}  // namespace tavrel
