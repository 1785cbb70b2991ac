// Reader of RIFF/WAVE files: reads the format block and the sample bytes into memory. It checks
// and converts nothing: 8-bit samples stay unsigned, 16-bit samples little-endian, and samples of
// any other width are plain bytes.
// Owns the samples. Prints nothing. Queries of an object that isn't loaded return false or null and
// leave the out-value unchanged.
#pragma once

#include <cstdint>

#include "foundation/byte_block.h"
#include "foundation/split_path.h"
#include "samples/riff_file.h"

namespace tavrel {

/// The start of a `fmt ` chunk. Fields beyond the end of a short chunk are 0.
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

  std::uint16_t formatTag{};  ///< 1 is plain PCM
  std::uint16_t channels{};
  std::uint32_t samplesPerSecond{};
  std::uint32_t averageBytesPerSecond{};
  std::uint16_t blockAlign{};
  std::uint16_t bitsPerSample{};
  std::uint16_t extraSize{};
};

/// View of a loaded file; the WaveFile owns the samples.
struct WaveSampleInfo {
  WaveFormat format;
  std::uint8_t* samples{};
  std::uint32_t size{};  ///< in bytes
};

/// Why a file wasn't loaded.
enum class WaveFault {
  none,
  cannotOpen,
  noForm,     ///< no RIFF chunk of form "WAVE"
  noFormat,   ///< no `fmt ` chunk in it
  formatCut,  ///< the file ends in the `fmt ` chunk
  noData,     ///< no `data` chunk after the `fmt ` chunk
  dataCut,    ///< the file ends in the `data` chunk
  noMemory,   ///< for the samples
};

class WaveFile {
 public:
  /// Doesn't access the disk.
  explicit WaveFile(const char* fullName);

  /// Reads the file. Returns false if it can't be opened, if it has no RIFF chunk of form "WAVE"
  /// with a `fmt ` chunk and a `data` chunk after that, if the file ends inside one of these two,
  /// or if memory runs out. An object serves one `load`.
  bool load();

  bool getDataSize(std::uint32_t& size) const;
  bool getBitsPerSample(std::uint16_t& bits) const;

  /// Returns the sample bytes, which the caller may change in place. Valid until `takeSamples`,
  /// `releaseData` or the object's destruction.
  [[nodiscard]] std::uint8_t* getSampleData() const;

  /// Transfers ownership of the samples to the caller. The block has room for padding to a multiple
  /// of 4 bytes.
  ByteBlock takeSamples();

  // Not used by the tool; for programs that inspect WAV files, such as tavkit.

  /// Returns why `load` failed.
  [[nodiscard]] WaveFault fault() const { return fault_; }

  /// Returns the name under which the file is opened, with three characters of its extension. Valid
  /// until the next call or the object's destruction.
  [[nodiscard]] const char* openedName() { return path_.getFullPath(); }

  bool getChannels(std::uint16_t& channels) const;
  bool getSampleRate(std::uint32_t& rate) const;
  bool getFormatTag(std::uint16_t& tag) const;
  bool getFormat(WaveFormat& record) const;
  [[nodiscard]] bool isStereo() const;
  [[nodiscard]] bool isMono() const;
  [[nodiscard]] bool isPcm() const;

  /// Fills `record` from a loaded file. Also returns false if the samples have been taken or
  /// released; `record` then has a null pointer.
  bool getSampleInfo(WaveSampleInfo& record) const;

  /// Frees the samples.
  void releaseData();

 private:
  bool fail(WaveFault fault);
  bool readChunks(RiffFile& riff);
  bool readFormat(RiffFile& riff, const ChunkInfo& chunk);
  bool readSamples(RiffFile& riff, const ChunkInfo& chunk);

  /// Sets `out` to `value` if the object is loaded.
  template <typename Value>
  bool answer(Value& out, const Value& value) const {
    if (loaded_) {
      out = value;
    }
    return loaded_;
  }

  WaveFormat format_;
  SplitPath path_;
  ByteBlock samples_;
  std::uint32_t sampleBytes_ = 0;
  WaveFault fault_ = WaveFault::none;
  bool loaded_ = false;
};

}  // namespace tavrel
