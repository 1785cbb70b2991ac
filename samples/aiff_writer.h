// Writer of AIFF files, with an optional sustain loop. Makes the bytes before and after the
// samples; the caller writes header, samples and pad byte one after the other, so that the samples
// need not be in memory at once. Prints nothing.
//
// The file, numbers big-endian:
//
// | offset | width  | content                                                           |
// |--------|--------|-------------------------------------------------------------------|
// | 0      | 4      | "FORM"                                                            |
// | 4      | 4      | size of everything after this field                               |
// | 8      | 4      | "AIFF"                                                            |
// | 12     | 26     | `COMM` chunk                                                      |
// |        | 0, 26  | `MARK` chunk, if there is a loop                                  |
// |        | 0, 28  | `INST` chunk, if there is a loop                                  |
// |        | 4      | "SSND"                                                            |
// |        | 4      | size of the rest of the chunk                                     |
// |        | 4      | offset of the samples: 0                                          |
// |        | 4      | block size: 0                                                     |
// |        | size   | samples, signed                                                   |
// |        | 0, 1   | pad byte if size is odd; not counted in the size of the chunk     |
//
// aiff_records.h describes the contents of the chunks. The loop is that of the instrument: its two
// markers are numbered 1 and 2, and have no names.
#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "samples/aiff_records.h"

namespace tavrel {

/// A forward loop, in frames.
struct AiffMarkedLoop {
  std::uint32_t start = 0;
  std::uint32_t end = 0;  ///< exclusive
};

/// What a written file states about its samples.
struct AiffFileFormat {
  std::uint16_t channels = 1;
  std::uint32_t framesPerSecond = 0;
  std::uint16_t bitsPerSample = 16;  ///< 8 or 16
  std::optional<AiffMarkedLoop> loop{};
};

/// Returns the number of bytes before the samples.
constexpr std::uint32_t aiffHeaderSize(const AiffFileFormat& format) {
  constexpr std::uint32_t kChunkHeader = 4 + 4;
  constexpr std::uint32_t kMarkers =
      AiffMarkerList::kStoredSize + 2 * (AiffMarker::kHeaderSize + 1);
  constexpr std::uint32_t kLoop = 2 * kChunkHeader + kMarkers + AiffInstrument::kStoredSize;
  constexpr std::uint32_t kPlain =
      kChunkHeader + 4 + 2 * kChunkHeader + AiffCommon::kStoredSize + AiffSound::kStoredSize;
  static_assert(kLoop == 26 + 28 && kPlain == 12 + 26 + 16);
  return format.loop ? kPlain + kLoop : kPlain;
}

/// Returns true if a file with that many bytes of samples has less than 4 GiB, which AiffFile can
/// read. Other files can't be written.
constexpr bool fitsAiffFile(const AiffFileFormat& format, std::uint64_t sampleBytes) {
  constexpr std::uint64_t kLargest = std::numeric_limits<std::uint32_t>::max();
  return sampleBytes <= kLargest - 1 - aiffHeaderSize(format);
}

/// Returns the bytes before the samples of a file that fits. Throws std::bad_alloc if memory runs
/// out.
std::vector<std::uint8_t> aiffFileHeader(const AiffFileFormat& format, std::uint32_t sampleBytes);

/// Returns the bytes after the samples. Throws std::bad_alloc if memory runs out.
std::vector<std::uint8_t> aiffFileTail(std::uint32_t sampleBytes);

}  // namespace tavrel
