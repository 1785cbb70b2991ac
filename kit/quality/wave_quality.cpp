#include "kit/quality/wave_quality.h"

#include <fmt/format.h>
#include <tavrel/bank.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <new>

#include "compiler/wave_rules.h"
#include "foundation/byte_order.h"
#include "kit/frame/captured_console.h"
#include "kit/frame/failure.h"
#include "kit/frame/split_name.h"
#include "samples/aiff_file.h"
#include "samples/wave_file.h"

namespace tavrel::kit {

namespace {

constexpr std::int32_t kHighest = std::numeric_limits<std::int16_t>::max();
constexpr std::int32_t kLowest = std::numeric_limits<std::int16_t>::min();

bool isLimit(std::int32_t sample) { return sample == kHighest || sample == kLowest; }

/// Throws if the reader can't load its file.
template <typename Reader, typename Fault>
void load(Reader& reader, Fault noMemory, const std::string& name, SourceSound& sound) {
  const CapturedConsole silence;
  if (reader.load() && reader.getDataSize(sound.size) && reader.getBitsPerSample(sound.bits)) {
    return;
  }
  if (reader.fault() == noMemory) {
    throw std::bad_alloc();
  }
  throw Failure(fmt::format("can't read the sound {}", name));
}

/// Compares sample by sample. The sums are exact: a file has less than 2^31 samples of 16 bits, and
/// the square of an error is less than 2^32.
class Comparison {
 public:
  void add(std::int32_t source, std::int32_t decoded) {
    const std::int32_t error = decoded - source;
    sourcePower_ += square(source);
    errorPower_ += square(error);
    if (std::abs(error) > std::abs(quality_.worstError)) {
      quality_.worstError = error;
      quality_.worstSample = count_;
    }
    quality_.clipped += isLimit(decoded) && !isLimit(source) ? 1 : 0;
    ++count_;
  }

  WaveQuality result() {
    if (sourcePower_ != 0 && errorPower_ != 0) {
      quality_.decibels =
          10 * std::log10(static_cast<double>(sourcePower_) / static_cast<double>(errorPower_));
    }
    return quality_;
  }

 private:
  static std::uint64_t square(std::int32_t value) {
    return static_cast<std::uint64_t>(std::int64_t{value} * value);
  }

  WaveQuality quality_;
  std::uint64_t sourcePower_ = 0;
  std::uint64_t errorPower_ = 0;
  std::uint32_t count_ = 0;
};

}  // namespace

SourceSound readSource(const std::string& name) {
  SourceSound sound;
  if (isAiffExtension(splitName(name).extension.c_str())) {
    AiffFile file(name.c_str());
    load(file, AiffFault::noMemory, name, sound);
    sound.samples = file.getSampleData();
    sound.block = file.takeImage();
  } else {
    WaveFile file(name.c_str());
    load(file, WaveFault::noMemory, name, sound);
    sound.samples = file.getSampleData();
    sound.block = file.takeSamples();
  }
  return sound;
}

WaveQuality compareStream(const std::uint8_t* stream, const std::uint8_t* samples,
                          std::uint32_t codeBytes) {
  constexpr std::uint32_t kPiece = 4096;
  std::array<std::int16_t, std::size_t{2} * kPiece> decoded{};
  Comparison comparison;
  tavrel_adpcm state;
  tavrel_adpcm_start(&state);
  while (codeBytes > 0) {
    const std::uint32_t piece = std::min(codeBytes, kPiece);
    tavrel_adpcm_decode(&state, stream, piece, decoded.data());
    for (std::uint32_t i = 0; i < 2 * piece; ++i, samples += 2) {
      comparison.add(static_cast<std::int16_t>(loadLittle16(samples)), decoded[i]);
    }
    stream += piece;
    codeBytes -= piece;
  }
  return comparison.result();
}

}  // namespace tavrel::kit
