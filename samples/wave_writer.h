// Writer of RIFF/WAVE files of plain PCM samples, with an optional loop. Makes the bytes before and
// after the samples; the caller writes header, samples and tail one after the other, so that the
// samples need not be in memory at once. Prints nothing.
//
// The file, numbers little-endian:
//
// | offset | width | content                                                            |
// |--------|-------|--------------------------------------------------------------------|
// | 0      | 4     | "RIFF"                                                             |
// | 4      | 4     | size of everything after this field                                |
// | 8      | 4     | "WAVE"                                                             |
// | 12     | 24    | `fmt ` chunk                                                       |
// | 36     | 4     | "data"                                                             |
// | 40     | 4     | size of the samples                                                |
// | 44     | size  | samples; those of 8 bits are unsigned                              |
// |        | 0, 1  | pad byte if size is odd; not counted in size                       |
// |        | 68    | `smpl` chunk, if there is a loop                                   |
//
// The `fmt ` chunk:
//
// | offset | width | content                                                            |
// |--------|-------|--------------------------------------------------------------------|
// | 0      | 4     | "fmt "                                                             |
// | 4      | 4     | 16, the size of the rest                                           |
// | 8      | 2     | format tag: 1, plain PCM                                           |
// | 10     | 2     | channels                                                           |
// | 12     | 4     | frames per second                                                  |
// | 16     | 4     | bytes per second                                                   |
// | 20     | 2     | bytes per frame                                                    |
// | 22     | 2     | bits per sample                                                    |
//
// The `smpl` chunk:
//
// | offset | width | content                                                            |
// |--------|-------|--------------------------------------------------------------------|
// | 0      | 4     | "smpl"                                                             |
// | 4      | 4     | 60, the size of the rest                                           |
// | 8      | 4     | manufacturer: 0, none                                              |
// | 12     | 4     | product: 0, none                                                   |
// | 16     | 4     | sample period in whole nanoseconds                                 |
// | 20     | 4     | MIDI unity note: 60                                                |
// | 24     | 4     | pitch fraction: 0                                                  |
// | 28     | 4     | SMPTE format: 0, none                                              |
// | 32     | 4     | SMPTE offset: 0                                                    |
// | 36     | 4     | number of loops: 1                                                 |
// | 40     | 4     | size of further data: 0                                            |
// | 44     | 4     | loop: cue point id, 0                                              |
// | 48     | 4     | loop: type, 0 for forward                                          |
// | 52     | 4     | loop: first frame                                                  |
// | 56     | 4     | loop: last frame, which is played too                              |
// | 60     | 4     | loop: fraction of a frame, 0                                       |
// | 64     | 4     | loop: play count, 0 for endless                                    |
#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

namespace tavrel {

constexpr std::uint32_t kChunkHeaderBytes = 4 + 4;
constexpr std::uint32_t kWaveFormatBytes = kChunkHeaderBytes + 2 + 2 + 4 + 4 + 2 + 2;
constexpr std::uint32_t kSamplerBytes = kChunkHeaderBytes + 9 * 4 + 6 * 4;
constexpr std::uint32_t kWaveHeaderBytes =
    kChunkHeaderBytes + 4 + kWaveFormatBytes + kChunkHeaderBytes;
static_assert(kWaveFormatBytes == 24 && kSamplerBytes == 68 && kWaveHeaderBytes == 44);

/// A forward loop, in frames.
struct WaveLoop {
  std::uint32_t start = 0;
  std::uint32_t last = 0;  ///< inclusive
};

/// What a written file states about its samples.
struct WaveFileFormat {
  std::uint16_t channels = 1;
  std::uint32_t framesPerSecond = 0;
  std::uint16_t bitsPerSample = 16;  ///< a sample takes whole bytes
  std::optional<WaveLoop> loop{};
};

/// Returns the value of the file's size field, in 64 bits: the size of the file without its first
/// chunk header.
constexpr std::uint64_t waveFormSize(const WaveFileFormat& format, std::uint64_t sampleBytes) {
  return kWaveHeaderBytes - kChunkHeaderBytes + sampleBytes + sampleBytes % 2 +
         (format.loop ? kSamplerBytes : 0);
}

/// Returns true if the sizes of a file with that many bytes of samples fit into their fields. Other
/// files can't be written.
constexpr bool fitsWaveFile(const WaveFileFormat& format, std::uint64_t sampleBytes) {
  constexpr std::uint64_t kLargest = std::numeric_limits<std::uint32_t>::max();
  return sampleBytes <= kLargest && waveFormSize(format, sampleBytes) <= kLargest;
}

/// Returns the bytes before the samples of a file that fits. Bytes per frame and per second that
/// don't fit into their fields lose their high bits.
std::array<std::uint8_t, kWaveHeaderBytes> waveFileHeader(const WaveFileFormat& format,
                                                          std::uint32_t sampleBytes);

/// Returns the bytes after the samples: the pad byte and the loop, if any. Throws std::bad_alloc if
/// memory runs out.
std::vector<std::uint8_t> waveFileTail(const WaveFileFormat& format, std::uint32_t sampleBytes);

}  // namespace tavrel
