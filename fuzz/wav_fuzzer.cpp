// Fuzzes the WAV reader with one hostile file, and the encoder with its samples.
#include <cstdint>
#include <string_view>

#include "fuzz/hostile_file.h"
#include "fuzz/require.h"
#include "samples/adpcm_encoder.h"
#include "samples/wave_file.h"

namespace tavrel::fuzz {

namespace {

/// Checks that no query is answered.
void checkRefusal(const WaveFile& wave) {
  std::uint32_t size = 1;
  std::uint16_t bits = 1;
  require(!wave.getDataSize(size) && size == 1);
  require(!wave.getBitsPerSample(bits) && bits == 1);
  require(!wave.isMono() && !wave.isStereo() && !wave.isPcm());
  require(wave.getSampleData() == nullptr);
}

void checkSamples(WaveFile& wave, std::string_view file) {
  std::uint32_t size = 0;
  WaveSampleInfo info;
  require(wave.getDataSize(size) && wave.getSampleInfo(info));
  const std::uint8_t* samples = wave.getSampleData();
  require(file.find(std::string_view{reinterpret_cast<const char*>(samples), size}) !=
          std::string_view::npos);
  AdpcmEncoder encoder;
  require(encoder.encode(reinterpret_cast<const std::int16_t*>(samples), size));
  require(encoder.outputSize % 4 == 0 && encoder.outputSize / 4 == (size / 4 + 3) / 4);
}

}  // namespace

}  // namespace tavrel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  using namespace tavrel;
  const fuzz::HostileFile input(bytes, size);
  WaveFile wave(input.path());
  if (wave.load()) {
    fuzz::checkSamples(wave, {reinterpret_cast<const char*>(bytes), size});
  } else {
    fuzz::checkRefusal(wave);
  }
  return 0;
}
