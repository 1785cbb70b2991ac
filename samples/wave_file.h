// Reads the format block and the sample bytes of a RIFF/WAVE file into memory, and judges neither:
// 8-bit samples stay unsigned, 16-bit samples little-endian, any other width is bytes.
// Owns the samples. Prints nothing; queries answer only after a successful `load`, and otherwise
// give false or null and leave their out-value as it was.
#pragma once

#include <cstdint>

#include "foundation/byte_block.h"
#include "foundation/split_path.h"
#include "samples/riff_file.h"

namespace tavrel {

/// The start of a `fmt ` chunk. Fields that a short chunk doesn't reach are 0.
///
/// | offset | width | field                 |
/// |--------|-------|-----------------------|
/// | 0      | 2     | formatTag             |
/// | 2      | 2     | channels              |
/// | 4      | 4     | samplesPerSecond      |
/// | 8      | 4     | averageBytesPerSecond |
/// | 12     | 2     | blockAlign            |
/// | 14     | 2     | bitsPerSample         |
/// | 16     | 2     | extraSize             |
struct WaveFormat {
  static constexpr std::uint32_t kStoredSize = 2 + 2 + 4 + 4 + 2 + 2 + 2;

  std::uint16_t formatTag = 0;  ///< 1 is plain PCM
  std::uint16_t channels = 0;
  std::uint32_t samplesPerSecond = 0;
  std::uint32_t averageBytesPerSecond = 0;
  std::uint16_t blockAlign = 0;
  std::uint16_t bitsPerSample = 0;
  std::uint16_t extraSize = 0;
};

/// All that a loaded file knows. The samples belong to the WaveFile.
struct WaveSampleInfo {
  WaveFormat format;
  std::uint8_t* samples = nullptr;
  std::uint32_t size = 0;  ///< in bytes
};

class WaveFile {
 public:
  /// No disk access yet.
  explicit WaveFile(const char* fullName);

  /// Reads the file; an object serves one `load`. False: no such file, no RIFF chunk of form
  /// "WAVE", no `fmt ` chunk or no `data` chunk behind it, a chunk that promises more than the file
  /// holds, or no memory.
  bool load();

  [[nodiscard]] bool getDataSize(std::uint32_t& size) const;
  [[nodiscard]] bool getBitsPerSample(std::uint16_t& bits) const;
  [[nodiscard]] bool getChannels(std::uint16_t& channels) const;
  [[nodiscard]] bool getSampleRate(std::uint32_t& rate) const;
  [[nodiscard]] bool getFormatTag(std::uint16_t& tag) const;
  [[nodiscard]] bool getFormat(WaveFormat& record) const;
  [[nodiscard]] bool isStereo() const;
  [[nodiscard]] bool isMono() const;
  [[nodiscard]] bool isPcm() const;

  /// False as well if the samples are released.
  [[nodiscard]] bool getSampleInfo(WaveSampleInfo& record) const;

  /// The sample bytes, which the caller may change in place. Valid until `takeSamples`,
  /// `releaseData` or the end of the object.
  [[nodiscard]] std::uint8_t* getSampleData() const;

  /// Gives the samples to the caller, in a block with room for padding up to a multiple of 4 bytes.
  /// Null if nothing is loaded; as with `releaseData`, none are left here.
  ByteBlock takeSamples();

  /// Frees the samples at once.
  void releaseData();

 private:
  bool readFrom(RiffFile& riff);
  bool readFormat(RiffFile& riff, const ChunkInfo& chunk);
  bool readSamples(RiffFile& riff, const ChunkInfo& chunk);

  template <typename Value>
  bool answer(Value& out, const Value& value) const {
    if (loaded) {
      out = value;
    }
    return loaded;
  }

  WaveFormat format;
  SplitPath path;
  ByteBlock samples;
  std::uint32_t sampleBytes = 0;
  bool loaded = false;
};

}  // namespace tavrel
